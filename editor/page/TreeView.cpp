// SPDX-License-Identifier: MIT
// A tree view over the page's nodes: `treInput` or `treOutput`.
#include "editor/page/TreeView.h"

#include <algorithm>

#include "editor/page/TreeIcons.h"
#include "win/WideText.h"

namespace Quorvane::Editor {
namespace {

/// Sets a flag for as long as it lives.
class Raised {
  public:
    explicit Raised(bool& flag) noexcept : flag_(flag), former_(std::exchange(flag, true)) {}
    ~Raised() { flag_ = former_; }
    Raised(const Raised&) = delete;
    Raised& operator=(const Raised&) = delete;

  private:
    bool& flag_;
    bool former_;
};

int ImageIndex(TextView key) {
    return static_cast<int>(std::ranges::find(TreeIconKeys, key) - std::begin(TreeIconKeys));
}

} // namespace

Win::Handle<Win::ImageListKind> MakeTreeImages(int side) {
    Win::Handle<Win::ImageListKind> images(::ImageList_Create(
        side, side, ILC_COLOR32 | ILC_MASK, static_cast<int>(std::size(TreeIconKeys)), 0));
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = side;
    info.bmiHeader.biHeight = -side;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    for (const TextView key : TreeIconKeys) {
        void* pixels = nullptr;
        const Win::Bitmap bitmap(
            ::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &pixels, nullptr, 0));
        if (bitmap) {
            std::ranges::copy(DrawTreeIcon(key, side), static_cast<std::uint32_t*>(pixels));
            ::ImageList_Add(images.Get(), bitmap.Get(), nullptr);
        }
    }
    return images;
}

void TreeView::Create(HWND parent, UINT id, const DialogFont& font, HIMAGELIST images) {
    window_ = MakeControl(parent, WC_TREEVIEWW, {},
                          WS_TABSTOP | TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT |
                              TVS_EDITLABELS | TVS_SHOWSELALWAYS,
                          id, font, WS_EX_CLIENTEDGE);
    TreeView_SetImageList(Window(), images, TVSIL_NORMAL);
    if (root_) {
        Show(*root_);
    }
}

void TreeView::Destroy() noexcept {
    const Raised showing(isShowing_);
    items_.clear();
    window_.Reset();
}

bool TreeView::EndEdit() {
    const bool wasEditing = IsEditing();
    if (wasEditing) {
        TreeView_EndEditLabelNow(Window(), FALSE);
    }
    return wasEditing;
}

void TreeView::CancelEdit() {
    // Wine reports the typed text for a cancelled edit as well, so the report is told apart here.
    const Raised cancelling(isCancelling_);
    TreeView_EndEditLabelNow(Window(), TRUE);
}

bool TreeView::IsEditing() const noexcept {
    return window_ && TreeView_GetEditControl(Window()) != nullptr;
}

void TreeView::Show(TreeNode& root) {
    root_ = &root;
    if (!window_) {
        return;
    }
    const Raised showing(isShowing_);
    ::SendMessageW(Window(), WM_SETREDRAW, FALSE, 0);
    TreeView_DeleteAllItems(Window());
    items_.clear();
    InsertItem(root, TVI_ROOT);
    ::SendMessageW(Window(), WM_SETREDRAW, TRUE, 0);
    TreeView_SelectItem(Window(), ItemOf(root));
}

void TreeView::Insert(TreeNode& node) {
    if (window_) {
        const Raised showing(isShowing_);
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
    insert.item.iImage = ImageIndex(node.Image);
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
        const Raised showing(isShowing_);
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

void TreeView::Select(TreeNode& node) {
    if (window_) {
        const Raised showing(isShowing_);
        TreeView_SelectItem(Window(), ItemOf(node));
        TreeView_EnsureVisible(Window(), ItemOf(node));
    }
}

void TreeView::EditLabel(TreeNode& node) {
    if (window_) {
        const Raised asked(isEditAsked_);
        if (clickedAgain_) {
            clickedAgain_ = nullptr;
        }
        ::SetFocus(Window());
        TreeView_EditLabel(Window(), ItemOf(node));
    }
}

/// Whether an edit that begins comes too late from a second click on a node.
bool TreeView::IsOutdatedEdit(const TreeNode& node) {
    if (isEditAsked_ || !clickedAgain_) {
        return false;
    }
    return *std::exchange(clickedAgain_, std::nullopt) != &node;
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
    TVHITTESTINFO hit{};
    ::GetCursorPos(&hit.pt);
    ::ScreenToClient(Window(), &hit.pt);
    HTREEITEM const item = TreeView_HitTest(Window(), &hit);
    return (hit.flags & TVHT_ONITEM) != 0 ? NodeOf(item) : nullptr;
}

LRESULT TreeView::OnNotify(NMHDR& header) {
    switch (header.code) {
    case TVN_SELCHANGEDW: {
        const auto& change = reinterpret_cast<const NMTREEVIEWW&>(header);
        TreeNode* const node = NodeOf(change.itemNew.hItem);
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
            clickedAgain_ = node;
            events_.OnNodeClick(*node);
        }
        return 0;
    }
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
        if (node && edit.item.pszText && !isCancelling_) {
            const Text typed(reinterpret_cast<const char16_t*>(edit.item.pszText));
            events_.OnAfterLabelEdit(*node, typed);
        }
        return FALSE;
    }
    case TVN_DELETEITEMW: {
        const auto& gone = reinterpret_cast<const NMTREEVIEWW&>(header);
        items_.erase(reinterpret_cast<const TreeNode*>(gone.itemOld.lParam));
        return 0;
    }
    case NM_CUSTOMDRAW:
        return CustomDraw(reinterpret_cast<NMTVCUSTOMDRAW&>(header));
    default:
        return 0;
    }
}

LRESULT TreeView::CustomDraw(NMTVCUSTOMDRAW& draw) const {
    if (draw.nmcd.dwDrawStage == CDDS_PREPAINT) {
        return CDRF_NOTIFYITEMDRAW;
    }
    const auto* const node = reinterpret_cast<const TreeNode*>(draw.nmcd.lItemlParam);
    const bool isSelected = (draw.nmcd.uItemState & CDIS_SELECTED) != 0;
    if (draw.nmcd.dwDrawStage == CDDS_ITEMPREPAINT && node && node->Color && !isSelected) {
        draw.clrText = *node->Color;
    }
    return CDRF_DODEFAULT;
}

} // namespace Quorvane::Editor
