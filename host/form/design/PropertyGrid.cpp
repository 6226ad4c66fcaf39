// SPDX-License-Identifier: MIT
// PropertyGrid: the visible properties of a control, to be looked at and changed in design mode.
#include "host/form/design/PropertyGrid.h"

#include "host/container/FormFont.h"
#include "host/container/HResult.h"
#include "host/form/design/PropertyDialogs.h"
#include "host/form/parts/Automation.h"
#include "host/form/parts/ListColumns.h"
#include "host/form/parts/Texts.h"

#include <algorithm>
#include <array>

#include <commctrl.h>
#include <olectl.h>

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

COLORREF ToColorref(LONG color) {
    COLORREF rgb = 0;
    OleTranslateColor(static_cast<OLE_COLOR>(color), nullptr, &rgb);
    return rgb;
}

std::wstring HexText(LONG number) {
    std::array<wchar_t, 16> text{};
    swprintf(text.data(), text.size(), L"&H%08lX", static_cast<unsigned long>(number));
    return text.data();
}

} // namespace

PropertyGrid::PropertyGrid(HWND parent) {
    Create(L"QuorvanePropertyGrid", L"Properties", WS_CHILD | WS_CLIPCHILDREN, parent, nullptr,
           WS_EX_CONTROLPARENT);
    title_ = CreateChild(Handle(), L"STATIC", L"", SS_LEFT | SS_NOPREFIX, TitleId);
    list_ =
        CreateChild(Handle(), WC_LISTVIEWW, L"Properties",
                    WS_TABSTOP | LVS_REPORT | LVS_SINGLESEL | LVS_SHOWSELALWAYS | LVS_NOSORTHEADER,
                    ListId, WS_EX_CLIENTEDGE);
    SetColumns(list_, {{GetText(TextId::Property), 120}, {GetText(TextId::Value), 200}});
    field_ = CreateChild(list_, L"EDIT", L"", ES_AUTOHSCROLL | WS_BORDER, FieldId);
    ShowWindow(field_, SW_HIDE);
    SetWindowSubclass(list_, ListProcedure, 0, 0);
    SetWindowSubclass(field_, FieldProcedure, 0, reinterpret_cast<DWORD_PTR>(this));
}

void PropertyGrid::SetObject(const std::wstring& name, IDispatch* object) {
    FinishText(false);
    object_ = object;
    SetWindowTextW(title_, name.c_str());
    ListProperties();
    RefreshValues();
}

void PropertyGrid::ListProperties() {
    ListView_DeleteAllItems(list_);
    properties_.clear();
    ComPtr<ITypeInfo> type;
    TYPEATTR* attributes = nullptr;
    if (!object_ || FAILED(object_->GetTypeInfo(0, LOCALE_USER_DEFAULT, type.Receive())) ||
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
    Bstr name;
    UINT count = 0;
    if (FAILED(type.GetNames(getter.memid, name.Receive(), 1, &count))) {
        return;
    }
    Property property{name.Text(), Editor::Text};
    Variant value;
    try {
        value = Read(property);
    } catch (const HResultError&) {
        return; // a property of run time only
    }
    if (value.vt == VT_DISPATCH && !Query<IFont>(value.pdispVal)) {
        return;
    }
    const bool isColor = getter.memid == DISPID_BACKCOLOR || getter.memid == DISPID_FORECOLOR;
    property.EditedAs = isColor                   ? Editor::Color
                        : value.vt == VT_DISPATCH ? Editor::Font
                        : value.vt == VT_BOOL     ? Editor::Flag
                                                  : Editor::Text;
    AddRow(list_, {property.Name, L""});
    properties_.push_back(std::move(property));
}

Variant PropertyGrid::Read(const Property& property) const {
    return CallMember(object_.Get(), property.Name.c_str(), {}, DISPATCH_PROPERTYGET);
}

std::wstring PropertyGrid::Describe(const Property& property) const {
    const Variant value = Read(property);
    switch (property.EditedAs) {
    case Editor::Color: {
        Variant number = value;
        number.ChangeType(VT_I4, LOCALE_USER_DEFAULT);
        return HexText(number.lVal);
    }
    case Editor::Font: {
        const auto font = Query<IFont>(value.vt == VT_DISPATCH ? value.pdispVal : nullptr);
        Bstr name;
        CY size{};
        if (!font || FAILED(font->get_Name(name.Receive())) || FAILED(font->get_Size(&size))) {
            return L"";
        }
        return name.Text() + L", " + ValueText(Variant(static_cast<double>(size.int64) / 10000));
    }
    default:
        return ValueText(value);
    }
}

void PropertyGrid::RefreshValues() {
    for (std::size_t i = 0; object_ && i < properties_.size(); ++i) {
        SetCell(list_, static_cast<int>(i), 1, Describe(properties_[i]));
    }
}

LRESULT PropertyGrid::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_SIZE: {
        const int gap = Scaled(8);
        const int width = std::max(0, LOWORD(lParam) - 2 * gap);
        MoveWindow(title_, gap, gap, width, Scaled(20), TRUE);
        MoveWindow(list_, gap, Scaled(32), width, std::max(0, HIWORD(lParam) - Scaled(32) - gap),
                   TRUE);
        FillWidth(list_);
        return 0;
    }
    case WM_NOTIFY:
        return OnNotify(*reinterpret_cast<const NMHDR*>(lParam));
    default:
        return Window::OnMessage(message, wParam, lParam);
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
    const int row = ListView_GetNextItem(list_, -1, LVNI_SELECTED);
    if (row < 0 || !object_) {
        return;
    }
    const Property& property = properties_[static_cast<std::size_t>(row)];
    switch (property.EditedAs) {
    case Editor::Text:
        EditText(row);
        return;
    case Editor::Flag:
        SetProperty(object_.Get(), property.Name.c_str(),
                    Variant(Read(property).boolVal == VARIANT_FALSE));
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
    ListView_GetSubItemRect(list_, row, 1, LVIR_LABEL, &cell);
    editedRow_ = row;
    SetWindowTextW(field_, CellText(list_, row, 1).c_str());
    MoveWindow(field_, cell.left, cell.top, cell.right - cell.left, cell.bottom - cell.top, TRUE);
    ShowWindow(field_, SW_SHOW);
    SetFocus(field_);
    SendMessageW(field_, EM_SETSEL, 0, -1);
}

void PropertyGrid::FinishText(bool accept) {
    const int row = std::exchange(editedRow_, -1);
    if (row < 0) {
        return;
    }
    const std::wstring text = TextOf(field_);
    // Not if the edit ends because something else has got the keyboard.
    if (GetFocus() == field_) {
        SetFocus(list_);
    }
    ShowWindow(field_, SW_HIDE);
    if (accept && object_) {
        SetProperty(object_.Get(), properties_[static_cast<std::size_t>(row)].Name.c_str(),
                    Variant(std::wstring_view(text)));
        RefreshValues();
    }
}

LRESULT CALLBACK PropertyGrid::ListProcedure(HWND list, UINT message, WPARAM wParam, LPARAM lParam,
                                             UINT_PTR id, DWORD_PTR) {
    // Enter edits the selected property; dialogs would take it for their default button.
    if (message == WM_GETDLGCODE && wParam == VK_RETURN) {
        return DLGC_WANTALLKEYS;
    }
    if (message == WM_NCDESTROY) {
        RemoveWindowSubclass(list, ListProcedure, id);
    }
    return DefSubclassProc(list, message, wParam, lParam);
}

LRESULT CALLBACK PropertyGrid::FieldProcedure(HWND field, UINT message, WPARAM wParam,
                                              LPARAM lParam, UINT_PTR id, DWORD_PTR grid) {
    auto& self = *reinterpret_cast<PropertyGrid*>(grid);
    try {
        if (message == WM_GETDLGCODE) {
            return DLGC_WANTALLKEYS;
        }
        if (message == WM_KEYDOWN && (wParam == VK_RETURN || wParam == VK_ESCAPE)) {
            self.FinishText(wParam == VK_RETURN);
            return 0;
        }
        if (message == WM_CHAR && (wParam == VK_RETURN || wParam == VK_ESCAPE)) {
            return 0;
        }
        if (message == WM_KILLFOCUS) {
            self.FinishText(true);
        }
    } catch (const std::exception& error) {
        ShowError(self.Handle(), error.what());
    }
    if (message == WM_NCDESTROY) {
        RemoveWindowSubclass(field, FieldProcedure, id);
    }
    return DefSubclassProc(field, message, wParam, lParam);
}

void PropertyGrid::EditColor(const Property& property) {
    Variant number = Read(property);
    number.ChangeType(VT_I4, LOCALE_USER_DEFAULT);
    if (const auto chosen = AskForColor(GetAncestor(Handle(), GA_ROOT), ToColorref(number.lVal))) {
        SetProperty(object_.Get(), property.Name.c_str(), Variant(static_cast<LONG>(*chosen)));
    }
}

void PropertyGrid::EditFont(const Property& property) {
    const Variant value = Read(property);
    const auto font = Query<IFont>(value.vt == VT_DISPATCH ? value.pdispVal : nullptr);
    if (const auto chosen = AskForFont(GetAncestor(Handle(), GA_ROOT), font.Get())) {
        SetProperty(object_.Get(), property.Name.c_str(),
                    Variant(static_cast<IDispatch*>(chosen.Get())));
    }
}

} // namespace Quorvane::Host
