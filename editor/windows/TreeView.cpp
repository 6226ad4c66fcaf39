// SPDX-License-Identifier: MIT
// A tree view over the page's nodes: `treInput` or `treOutput`.
#include "editor/windows/TreeView.h"

#include "editor/windows/TreeImages.h"
#include "win/Raised.h"
#include "win/Unpainted.h"
#include "win/WideText.h"

namespace Quorvane::Editor {
namespace {

/// Whether a key moves in a tree, or would if there were somewhere to go.
bool IsMoveKey(WORD key) {
    // VK_SPACE, VK_PRIOR, VK_NEXT, VK_END, VK_HOME and the arrows follow each other.
    return key >= VK_SPACE && key <= VK_DOWN;
}

} // namespace

void TreeView::Create(HWND parent, UINT id, const DialogFont& font, HIMAGELIST images) {
    window_ = MakeControl(parent, WC_TREEVIEWW, {},
                          WS_TABSTOP | TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT |
                              TVS_EDITLABELS | TVS_SHOWSELALWAYS | TVS_NOTOOLTIPS,
                          id, font, WS_EX_CLIENTEDGE);
    ShowImages(images);
    tip_.emplace(Window(), [this](POINT point) { return TipAt(point); });
}

void TreeView::ShowNodes() {
    if (root_) {
        Show(*root_);
    }
}

void TreeView::ShowImages(HIMAGELIST images) const noexcept {
    TreeView_SetImageList(Window(), images, TVSIL_NORMAL);
}

void TreeView::Destroy() noexcept {
    const Win::Raised showing(isShowing_);
    items_.clear();
    tip_.reset();
    window_.Reset();
}

bool TreeView::EndEdit() {
    if (!IsEditing()) {
        return true;
    }
    isEditAccepted_ = false;
    TreeView_EndEditLabelNow(Window(), FALSE);
    return isEditAccepted_;
}

void TreeView::CancelEdit() {
    // Wine reports the typed text for a cancelled edit as well, so the report is told apart here.
    const Win::Raised cancelling(isCancelling_);
    if (IsEditing()) {
        TreeView_EndEditLabelNow(Window(), TRUE);
    }
}

bool TreeView::IsEditing() const noexcept {
    return window_ && TreeView_GetEditControl(Window()) != nullptr;
}

void TreeView::Show(TreeNode& root) {
    root_ = &root;
    if (!window_) {
        return;
    }
    const Win::Raised showing(isShowing_);
    {
        const Win::Unpainted filling(Window());
        TreeView_DeleteAllItems(Window());
        items_.clear();
        InsertItem(root, TVI_ROOT);
    }
    TreeView_SelectItem(Window(), ItemOf(root));
}

void TreeView::Insert(TreeNode& node) {
    if (window_) {
        const Win::Raised showing(isShowing_);
        InsertItem(node, ItemOf(*node.Parent));
        TreeView_Expand(Window(), ItemOf(*node.Parent), TVE_EXPAND);
    }
}

void TreeView::InsertItem(TreeNode& node, HTREEITEM parent) {
    TVINSERTSTRUCTW insert{};
    insert.hParent = parent;
    insert.hInsertAfter = TVI_LAST;
    insert.item.mask = TVIF_TEXT | TVIF_IMAGE | TVIF_SELECTEDIMAGE | TVIF_PARAM | TVIF_STATE;
    insert.item.pszText = const_cast<wchar_t*>(Win::Wide(node.Caption));
    insert.item.iImage = TreeImageIndex(node.Image);
    insert.item.iSelectedImage = insert.item.iImage;
    insert.item.lParam = reinterpret_cast<LPARAM>(&node);
    insert.item.state = node.Bold ? UINT{TVIS_BOLD} : 0U;
    insert.item.stateMask = TVIS_BOLD;
    auto* const item = reinterpret_cast<HTREEITEM>(
        ::SendMessageW(Window(), TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&insert)));
    items_[&node] = item;
    for (const auto& child : node.Children) {
        InsertItem(*child, item);
    }
    if (node.Expanded) {
        TreeView_Expand(Window(), item, TVE_EXPAND);
    }
}

void TreeView::Remove(TreeNode& node) {
    if (window_) {
        const Win::Raised showing(isShowing_);
        TreeView_DeleteItem(Window(), ItemOf(node));
    }
}

void TreeView::UpdateCaption(TreeNode& node) {
    if (window_) {
        TVITEMW item{};
        item.mask = TVIF_TEXT;
        item.hItem = ItemOf(node);
        item.pszText = const_cast<wchar_t*>(Win::Wide(node.Caption));
        ::SendMessageW(Window(), TVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item));
    }
}

void TreeView::Select(const TreeNode& node) {
    if (window_) {
        const Win::Raised showing(isShowing_);
        TreeView_SelectItem(Window(), ItemOf(node));
        const TreeNode* last = &node;
        while (last->Expanded && !last->Children.empty()) {
            last = last->Children.back().get();
        }
        TreeView_EnsureVisible(Window(), ItemOf(*last));
        TreeView_EnsureVisible(Window(), ItemOf(node));
    }
}

void TreeView::EditLabel(TreeNode& node) {
    if (window_) {
        const Win::Raised asked(isEditAsked_);
        clickedAgain_ = nullptr;
        ::SetFocus(Window());
        TreeView_EditLabel(Window(), ItemOf(node));
    }
}

/// Whether an edit that begins comes too late from a second click on a node.
bool TreeView::IsOutdatedEdit(const TreeNode& node) {
    if (isEditAsked_ || !awaitsTimedEdit_) {
        return false;
    }
    awaitsTimedEdit_ = false;
    return clickedAgain_ != &node;
}

HTREEITEM TreeView::ItemOf(const TreeNode& node) const {
    const auto found = items_.find(&node);
    return found == items_.end() ? nullptr : found->second;
}

TreeNode* TreeView::NodeOf(HTREEITEM item) const {
    TVITEMW asked{};
    asked.mask = TVIF_PARAM;
    asked.hItem = item;
    const bool known =
        item && ::SendMessageW(Window(), TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&asked)) != 0;
    return known ? reinterpret_cast<TreeNode*>(asked.lParam) : nullptr;
}

/// The node under the mouse, null for none.
TreeNode* TreeView::ClickedNode() const {
    const DWORD position = ::GetMessagePos();
    TVHITTESTINFO hit{};
    hit.pt = {static_cast<short>(LOWORD(position)), static_cast<short>(HIWORD(position))};
    ::ScreenToClient(Window(), &hit.pt);
    auto* const item = TreeView_HitTest(Window(), &hit);
    return (hit.flags & TVHT_ONITEM) != 0 ? NodeOf(item) : nullptr;
}

RECT TreeView::LabelArea(HTREEITEM item) const {
    RECT area{};
    // The message takes the item where it puts the place.
    *reinterpret_cast<HTREEITEM*>(&area) = item;
    const bool isSeen =
        ::SendMessageW(Window(), TVM_GETITEMRECT, TRUE, reinterpret_cast<LPARAM>(&area)) != 0;
    return isSeen ? area : RECT{};
}

/// What a node tells, or its label where that is cut off.
std::optional<Win::HoverTip::Tip> TreeView::TipAt(POINT point) const {
    TVHITTESTINFO hit{};
    hit.pt = point;
    auto* const item = TreeView_HitTest(Window(), &hit);
    TreeNode* const node = (hit.flags & TVHT_ONITEM) != 0 ? NodeOf(item) : nullptr;
    if (!node || IsEditing()) {
        return std::nullopt;
    }
    RECT room{};
    ::GetClientRect(Window(), &room);
    const RECT area = LabelArea(item);
    Text told = events_.OnTip(*node);
    if (told.empty() && area.right > room.right) {
        told = node->Caption;
    }
    return Win::HoverTip::Tip{std::move(told), area};
}

LRESULT TreeView::OnNotify(NMHDR& header) {
    switch (header.code) {
    case TVN_SELCHANGEDW: {
        const auto& change = reinterpret_cast<const NMTREEVIEWW&>(header);
        TreeNode* const node = NodeOf(change.itemNew.hItem);
        clickedAgain_ = nullptr;
        if (node && !isShowing_) {
            events_.OnNodeClick(*node);
        }
        return 0;
    }
    case TVN_ITEMEXPANDEDW: {
        // Closing a node over the selected one selects it, which not every tree view reports.
        const auto& change = reinterpret_cast<const NMTREEVIEWW&>(header);
        TreeNode* const node = NodeOf(change.itemNew.hItem);
        const bool isSelected = change.itemNew.hItem == TreeView_GetSelection(Window());
        if (node && isSelected && (change.action & TVE_COLLAPSE) != 0 && !isShowing_) {
            events_.OnNodeClick(*node);
        }
        return 0;
    }
    case NM_CLICK: {
        // A click on the selected node changes no selection, but makes its tree the current one.
        TreeNode* const node = ClickedNode();
        if (node && node == NodeOf(TreeView_GetSelection(Window()))) {
            awaitsTimedEdit_ = true;
            clickedAgain_ = node;
            events_.OnNodeClick(*node);
        }
        return 0;
    }
    case NM_SETFOCUS:
        events_.OnFocus();
        return 0;
    case TVN_KEYDOWN:
        if (IsMoveKey(reinterpret_cast<const NMTVKEYDOWN&>(header).wVKey)) {
            events_.OnMoveKey();
        }
        return 0;
    case TVN_BEGINLABELEDITW: {
        const auto& edit = reinterpret_cast<const NMTVDISPINFOW&>(header);
        TreeNode* const node = NodeOf(edit.item.hItem);
        const bool begins = node && !IsOutdatedEdit(*node) && events_.OnBeforeLabelEdit(*node);
        return begins ? FALSE : TRUE;
    }
    case TVN_ENDLABELEDITW: {
        const auto& edit = reinterpret_cast<const NMTVDISPINFOW&>(header);
        TreeNode* const node = NodeOf(edit.item.hItem);
        // The caption is set by the page, as it may differ from what was typed; Esc gives no text.
        if (node && edit.item.pszText && !isCancelling_ && !isShowing_) {
            const Text typed(reinterpret_cast<const char16_t*>(edit.item.pszText));
            // The end of one edit may be reported twice, and is accepted once.
            const bool isAccepted = events_.OnAfterLabelEdit(*node, typed);
            isEditAccepted_ = isEditAccepted_ || isAccepted;
        }
        return FALSE;
    }
    case TVN_DELETEITEMW: {
        const auto& gone = reinterpret_cast<const NMTREEVIEWW&>(header);
        items_.erase(reinterpret_cast<const TreeNode*>(gone.itemOld.lParam));
        clickedAgain_ = nullptr;
        return 0;
    }
    case NM_CUSTOMDRAW:
        return CustomDraw(reinterpret_cast<NMTVCUSTOMDRAW&>(header));
    default:
        return 0;
    }
}

LRESULT TreeView::CustomDraw(NMTVCUSTOMDRAW& draw) {
    if (draw.nmcd.dwDrawStage == CDDS_PREPAINT) {
        return CDRF_NOTIFYITEMDRAW;
    }
    const auto* const node = reinterpret_cast<const TreeNode*>(draw.nmcd.lItemlParam);
    // In the colours of the selection a node needs theirs for its text.
    const bool isMarked =
        (draw.nmcd.uItemState & CDIS_SELECTED) != 0 && ::GetFocus() == draw.nmcd.hdr.hwndFrom;
    if (draw.nmcd.dwDrawStage == CDDS_ITEMPREPAINT && node && node->Color && !isMarked) {
        draw.clrText = *node->Color;
    }
    return CDRF_DODEFAULT;
}

} // namespace Quorvane::Editor
