// SPDX-License-Identifier: MIT
// A test's form with one control on it.
#include "tests/windows/support/Form.h"

#include <commctrl.h>
#include <olectl.h>

#include "com/ClassFactory.h"
#include "com/ErrorBoundary.h"
#include "control/display/DisplayWindow.h"
#include "tests/com/support/TestBag.h"
#include "win/Handle.h"

namespace Quorvane {
namespace {

constexpr wchar_t FormClass[] = L"QuorvaneTestForm";

void RegisterFormClass() {
    WNDCLASSW description{};
    description.lpfnWndProc = ::DefWindowProcW;
    description.hInstance = ::GetModuleHandleW(nullptr);
    description.hbrBackground = reinterpret_cast<HBRUSH>(UINT_PTR{COLOR_BTNFACE + 1});
    description.lpszClassName = FormClass;
    ::RegisterClassW(&description);
}

} // namespace

Form::Form(const RECT& position, int show) {
    RegisterFormClass();
    RECT area{0, 0, position.right + 10, position.bottom + 10};
    constexpr DWORD Style = WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN;
    ::AdjustWindowRect(&area, Style, FALSE);
    window_ = ::CreateWindowW(FormClass, L"Form", Style, 40, 40, area.right - area.left,
                              area.bottom - area.top, nullptr, nullptr, ::GetModuleHandleW(nullptr),
                              nullptr);
    ::ShowWindow(window_, show);
    if (show != SW_HIDE) {
        ::SetForegroundWindow(window_);
    }
    site_ = Com::MakeObject<Site>(window_, position);
    HandleMessages();
}

Form::~Form() {
    if (control_) {
        Remove();
    }
    if (::IsWindow(window_)) {
        ::DestroyWindow(window_);
    }
    HandleMessages();
}

bool Form::WaitUntilSeen() const {
    const Win::WindowDc screen(nullptr);
    for (int i = 0; i < 300; ++i) {
        HandleMessages();
        POINT corner{2, 2};
        ::ClientToScreen(window_, &corner);
        if (::GetPixel(screen.Get(), corner.x, corner.y) == ::GetSysColor(COLOR_BTNFACE)) {
            return true;
        }
        ::Sleep(20);
    }
    return false;
}

void Form::Place(Start start, bool userMode) {
    site_->Ambients[DISPID_AMBIENT_USERMODE] = Com::Variant(userMode);
    Place(NewControl().As<_FISControl>(), start);
}

void Form::Place(Com::ComPtr<_FISControl> control, Start start) {
    control_ = std::move(control);
    Com::Check(As<IOleObject>()->SetClientSite(site_.Get()));
    if (start == Start::New) {
        Com::Check(As<IPersistStreamInit>()->InitNew());
    } else if (start == Start::FromEmptyBag) {
        const auto bag = Com::MakeObject<TestBag>();
        Com::Check(As<IPersistPropertyBag>()->Load(bag.Get(), nullptr));
    }
}

HRESULT Form::DoVerb(LONG verb, MSG* message) {
    return As<IOleObject>()->DoVerb(verb, message, site_.Get(), 0, window_, &site_->Position);
}

void Form::Move(const RECT& position) {
    site_->Position = position;
    const RECT clip{0, 0, 32767, 32767};
    Com::Check(As<IOleInPlaceObject>()->SetObjectRects(&position, &clip));
}

void Form::SetAmbient(DISPID property, Com::Variant value, DISPID told) {
    site_->Ambients[property] = std::move(value);
    Com::Check(As<IOleControl>()->OnAmbientPropertyChange(told));
}

void Form::Remove() {
    const auto object = As<IOleObject>();
    object->Close(OLECLOSE_NOSAVE);
    object->SetClientSite(nullptr);
    control_.Reset();
}

HWND Form::Surface() const {
    HWND window = nullptr;
    As<IOleInPlaceObject>()->GetWindow(&window);
    return window;
}

HWND Form::Strip() const {
    return ::GetDlgItem(Surface(), DisplayWindow::PicCaption);
}
HWND Form::Label() const {
    return ::GetDlgItem(Strip(), DisplayWindow::LblCaption);
}
HWND Form::Input() const {
    return ::GetDlgItem(Surface(), DisplayWindow::LvwInput);
}
HWND Form::Output() const {
    return ::GetDlgItem(Surface(), DisplayWindow::LvwOutput);
}
HWND Form::Status() const {
    return ::GetDlgItem(Surface(), DisplayWindow::SbMessage);
}

Com::ComPtr<IUnknown> NewObject(const CLSID& clsid, IUnknown* outer) {
    Com::ComPtr<IClassFactory> factory;
    Com::Check(Com::GetClassObject(clsid, __uuidof(IClassFactory), factory.PutVoid()));
    Com::ComPtr<IUnknown> object;
    Com::Check(factory->CreateInstance(outer, __uuidof(IUnknown), object.PutVoid()));
    return object;
}

Com::ComPtr<IUnknown> NewControl(IUnknown* outer) {
    return NewObject(CLSID_FISControl, outer);
}

void HandleMessages() {
    MSG message;
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
    }
}

Text CellText(HWND list, int row, int column) {
    wchar_t text[256] = L"";
    LVITEMW item{};
    item.iSubItem = column;
    item.pszText = text;
    item.cchTextMax = 256;
    ::SendMessageW(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(row),
                   reinterpret_cast<LPARAM>(&item));
    return Com::ToText(item.pszText);
}

Text HeaderText(HWND list, int column) {
    wchar_t text[256] = L"";
    LVCOLUMNW header{};
    header.mask = LVCF_TEXT;
    header.pszText = text;
    header.cchTextMax = 256;
    ListView_GetColumn(list, column, &header);
    return Com::ToText(header.pszText);
}

Text PanelText(HWND statusBar) {
    wchar_t text[512] = L"";
    ::SendMessageW(statusBar, SB_GETTEXTW, 0, reinterpret_cast<LPARAM>(text));
    return Com::ToText(text);
}

RECT PlaceOf(HWND window) {
    RECT place{};
    ::GetWindowRect(window, &place);
    ::MapWindowPoints(nullptr, ::GetParent(window), reinterpret_cast<POINT*>(&place), 2);
    return place;
}

} // namespace Quorvane
