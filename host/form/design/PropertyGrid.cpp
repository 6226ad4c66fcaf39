// SPDX-License-Identifier: MIT
// PropertyGrid: the visible properties of a control, to be looked at and changed in design mode.
#include "host/form/design/PropertyGrid.h"

#include <commctrl.h>
#include <olectl.h>

#include <algorithm>
#include <array>
#include <cstdio>

#include "com/FailedCall.h"
#include "host/container/FormFont.h"
#include "host/form/design/PropertyDialogs.h"
#include "host/form/parts/Automation.h"
#include "host/form/parts/ListColumns.h"
#include "host/form/parts/Texts.h"
#include "win/WideText.h"
#include "win/WindowText.h"

namespace Quorvane::Host {
namespace {

constexpr int ListId = 100;
constexpr int FieldId = 101;
constexpr int TitleId = 102;

/// Whether the type has a put or put-by-reference for a member.
bool HasSetter(ITypeInfo& type, WORD functionCount, MEMBERID member) {
    for (UINT i = 0; i < functionCount; ++i) {
        FUNCDESC* function = nullptr;
        if (FAILED(type.GetFuncDesc(i, &function))) {
            continue;
        }
        const bool sets = function->memid == member &&
                          (function->invkind & (INVOKE_PROPERTYPUT | INVOKE_PROPERTYPUTREF)) != 0;
        type.ReleaseFuncDesc(function);
        if (sets) {
            return true;
        }
    }
    return false;
}

COLORREF ToColorref(OLE_COLOR color) {
    COLORREF rgb = 0;
    ::OleTranslateColor(color, nullptr, &rgb);
    return rgb;
}

Text HexText(OLE_COLOR color) {
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "&H%08lX", static_cast<unsigned long>(color));
    return Widen(text.data());
}

} // namespace

PropertyGrid::PropertyGrid(HWND parent) {
    constexpr DWORD List =
        WS_TABSTOP | LVS_REPORT | LVS_SINGLESEL | LVS_SHOWSELALWAYS | LVS_NOSORTHEADER;
    Create<PropertyGrid>(u"Properties", WS_CHILD | WS_CLIPCHILDREN, parent, WS_EX_CONTROLPARENT);
    title_ = MakeChild(Get(), L"STATIC", {}, SS_LEFT | SS_NOPREFIX, TitleId);
    list_ = MakeChild(Get(), WC_LISTVIEWW, u"Properties", List, ListId, WS_EX_CLIENTEDGE);
    SetColumns(list_.Get(), {{GetText(TextId::Property), 120}, {GetText(TextId::Value), 200}});
    field_ = MakeChild(list_.Get(), L"EDIT", {}, ES_AUTOHSCROLL | WS_BORDER, FieldId);
    ::ShowWindow(field_.Get(), SW_HIDE);
    listMessages_ =
        std::make_unique<Win::Subclass>(list_.Get(), [](UINT message, WPARAM first, LPARAM) {
            return OnListMessage(message, first);
        });
    fieldMessages_ =
        std::make_unique<Win::Subclass>(field_.Get(), [this](UINT message, WPARAM first, LPARAM) {
            return OnFieldMessage(message, first);
        });
}

void PropertyGrid::SetObject(const Text& name, IDispatch* object) {
    FinishText(false);
    object_ = object;
    Win::ShowText(title_.Get(), name);
    ListProperties();
    RefreshValues();
}

void PropertyGrid::ListProperties() {
    ListView_DeleteAllItems(list_.Get());
    properties_.clear();
    Com::ComPtr<ITypeInfo> type;
    TYPEATTR* attributes = nullptr;
    if (!object_ || FAILED(object_->GetTypeInfo(0, LOCALE_USER_DEFAULT, type.Put())) ||
        FAILED(type->GetTypeAttr(&attributes))) {
        return;
    }
    const WORD functionCount = attributes->cFuncs;
    type->ReleaseTypeAttr(attributes);
    for (UINT i = 0; i < functionCount; ++i) {
        FUNCDESC* function = nullptr;
        if (FAILED(type->GetFuncDesc(i, &function))) {
            continue;
        }
        const bool isShown = function->invkind == INVOKE_PROPERTYGET &&
                             (function->wFuncFlags & FUNCFLAG_FHIDDEN) == 0 &&
                             HasSetter(*type.Get(), functionCount, function->memid);
        if (isShown) {
            AddProperty(*type.Get(), *function);
        }
        type->ReleaseFuncDesc(function);
    }
}

void PropertyGrid::AddProperty(ITypeInfo& type, const FUNCDESC& getter) {
    Com::Bstr name;
    UINT count = 0;
    if (FAILED(type.GetNames(getter.memid, name.Put(), 1, &count))) {
        return;
    }
    Property property{Text(name.Characters()), Editor::Text};
    Com::Variant value;
    try {
        value = Read(property);
    } catch (const Com::HresultError&) {
        return; // a property of run time only
    }
    if (value.Type() == VT_DISPATCH && !Com::Query<IFont>(value.Get().pdispVal)) {
        return;
    }
    const bool isColor = getter.memid == DISPID_BACKCOLOR || getter.memid == DISPID_FORECOLOR;
    property.EditedAs = isColor                       ? Editor::Color
                        : value.Type() == VT_DISPATCH ? Editor::Font
                        : value.Type() == VT_BOOL     ? Editor::Flag
                                                      : Editor::Text;
    AddRow(list_.Get(), {property.Name, u""});
    properties_.push_back(std::move(property));
}

Com::Variant PropertyGrid::Read(const Property& property) const {
    return CallMember(object_.Get(), property.Name, {}, DISPATCH_PROPERTYGET);
}

Text PropertyGrid::Describe(const Property& property) const {
    const Com::Variant value = Read(property);
    switch (property.EditedAs) {
    case Editor::Color: {
        return HexText(Com::ToColor(value.Get()));
    }
    case Editor::Font: {
        const auto font =
            Com::Query<IFont>(value.Type() == VT_DISPATCH ? value.Get().pdispVal : nullptr);
        Com::Bstr name;
        CY size{};
        if (!font || FAILED(font->get_Name(name.Put())) || FAILED(font->get_Size(&size))) {
            return u"";
        }
        return Text(name.Characters()) + u", " +
               ValueText(Com::Variant(static_cast<double>(size.int64) / 10000));
    }
    default:
        return ValueText(value);
    }
}

void PropertyGrid::RefreshValues() {
    for (std::size_t i = 0; object_ && i < properties_.size(); ++i) {
        SetCell(list_.Get(), static_cast<int>(i), 1, Describe(properties_[i]));
    }
}

LRESULT PropertyGrid::OnMessage(UINT message, WPARAM first, LPARAM second) {
    switch (message) {
    case WM_SIZE: {
        const int gap = Scaled(8);
        const int width = std::max(0, LOWORD(second) - 2 * gap);
        MoveChild(title_, gap, gap, width, Scaled(20));
        MoveChild(list_, gap, Scaled(32), width, std::max(0, HIWORD(second) - Scaled(32) - gap));
        FillWidth(list_.Get());
        return 0;
    }
    case WM_NOTIFY:
        return OnNotify(*reinterpret_cast<const NMHDR*>(second));
    default:
        return ProgramWindow::OnMessage(message, first, second);
    }
}

LRESULT PropertyGrid::OnNotify(const NMHDR& header) {
    if (header.idFrom != ListId) {
        return 0;
    }
    if (header.code == NM_DBLCLK || header.code == NM_RETURN) {
        EditSelected();
    } else if (header.code == LVN_KEYDOWN &&
               reinterpret_cast<const NMLVKEYDOWN&>(header).wVKey == VK_F2) {
        EditSelected();
    }
    return 0;
}

void PropertyGrid::EditSelected() {
    const int row = ListView_GetNextItem(list_.Get(), -1, LVNI_SELECTED);
    if (row < 0 || !object_) {
        return;
    }
    const Property& property = properties_[static_cast<std::size_t>(row)];
    switch (property.EditedAs) {
    case Editor::Text:
        EditText(row);
        return;
    case Editor::Flag:
        SetProperty(object_.Get(), property.Name,
                    Com::Variant(Read(property).Get().boolVal == VARIANT_FALSE));
        break;
    case Editor::Color:
        EditColor(property);
        break;
    case Editor::Font:
        EditFont(property);
        break;
    }
    RefreshValues();
}

void PropertyGrid::EditText(int row) {
    RECT cell{};
    ListView_GetSubItemRect(list_.Get(), row, 1, LVIR_LABEL, &cell);
    editedRow_ = row;
    ::SetWindowTextW(field_.Get(), Win::Wide(CellText(list_.Get(), row, 1)));
    MoveChild(field_, cell.left, cell.top, cell.right - cell.left, cell.bottom - cell.top);
    ::ShowWindow(field_.Get(), SW_SHOW);
    ::SetFocus(field_.Get());
    ::SendMessageW(field_.Get(), EM_SETSEL, 0, -1);
}

void PropertyGrid::FinishText(bool accept) {
    const int row = std::exchange(editedRow_, -1);
    if (row < 0) {
        return;
    }
    const Text text = Win::TextOf(field_.Get());
    // Not if the edit ends because something else has got the keyboard.
    if (::GetFocus() == field_.Get()) {
        ::SetFocus(list_.Get());
    }
    ::ShowWindow(field_.Get(), SW_HIDE);
    if (accept && object_) {
        SetProperty(object_.Get(), properties_[static_cast<std::size_t>(row)].Name.c_str(),
                    Com::Variant(TextView(text)));
        RefreshValues();
    }
}

std::optional<LRESULT> PropertyGrid::OnListMessage(UINT message, WPARAM first) {
    // Enter edits the selected property; dialogs would take it for their default button.
    return message == WM_GETDLGCODE && first == VK_RETURN ? std::optional<LRESULT>(DLGC_WANTALLKEYS)
                                                          : std::nullopt;
}

std::optional<LRESULT> PropertyGrid::OnFieldMessage(UINT message, WPARAM first) {
    const bool endsEdit = first == VK_RETURN || first == VK_ESCAPE;
    try {
        if (message == WM_GETDLGCODE) {
            return DLGC_WANTALLKEYS;
        }
        if (message == WM_KEYDOWN && endsEdit) {
            FinishText(first == VK_RETURN);
            return 0;
        }
        if (message == WM_CHAR && endsEdit) {
            return 0;
        }
        if (message == WM_KILLFOCUS) {
            FinishText(true);
        }
    } catch (const std::exception& error) {
        ShowError(Get(), error);
    }
    return std::nullopt;
}

void PropertyGrid::EditColor(const Property& property) {
    const OLE_COLOR offered = Com::ToColor(Read(property).Get());
    if (const auto chosen = AskForColor(::GetAncestor(Get(), GA_ROOT), ToColorref(offered))) {
        SetProperty(object_.Get(), property.Name, Com::Variant(static_cast<LONG>(*chosen)));
    }
}

void PropertyGrid::EditFont(const Property& property) {
    const Com::Variant value = Read(property);
    const auto font =
        Com::Query<IFont>(value.Type() == VT_DISPATCH ? value.Get().pdispVal : nullptr);
    if (const auto chosen = AskForFont(::GetAncestor(Get(), GA_ROOT), font.Get())) {
        SetProperty(object_.Get(), property.Name,
                    Com::Variant(static_cast<IDispatch*>(chosen.Get())));
    }
}

} // namespace Quorvane::Host
