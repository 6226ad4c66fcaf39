// SPDX-License-Identifier: MIT
// The place on a test's form that a control is put on.
#include "tests/windows/support/Site.h"

#include <olectl.h>

#include <algorithm>

namespace Quorvane {

int CallRecord::Count(const std::string& call) const {
    return static_cast<int>(std::ranges::count(calls_, call));
}

std::vector<std::string> CallRecord::Only(std::initializer_list<std::string> calls) const {
    std::vector<std::string> result;
    std::ranges::copy_if(calls_, std::back_inserter(result), [&](const std::string& call) {
        return std::ranges::find(calls, call) != calls.end();
    });
    return result;
}

HRESULT CallRecord::AnswerOf(const std::string& call, HRESULT usual) const {
    const auto answer = Answers.find(call);
    return answer == Answers.end() ? usual : answer->second;
}

HRESULT CallRecord::Answer(const std::string& call, HRESULT usual) {
    Add(call);
    return AnswerOf(call, usual);
}

STDMETHODIMP Frame::GetWindow(HWND* window) noexcept {
    *window = window_;
    return S_OK;
}

STDMETHODIMP Frame::SetBorderSpace(LPCBORDERWIDTHS widths) noexcept {
    return calls_.Answer(widths ? "SetBorderSpace" : "SetBorderSpace none");
}

STDMETHODIMP Frame::SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR) noexcept {
    active_ = object;
    return calls_.Answer(object ? "SetActiveObject" : "SetActiveObject none");
}

STDMETHODIMP Frame::EnableModeless(BOOL enable) noexcept {
    return calls_.Answer(enable ? "EnableModeless" : "EnableModeless not");
}

Site::Site(HWND window, const RECT& position)
    : Position(position), window_(window), frame_(Com::MakeObject<Frame>(window, Calls)) {
    Ambients[DISPID_AMBIENT_USERMODE] = Com::Variant(true);
    Ambients[DISPID_AMBIENT_LOCALEID] = Com::Variant(1033);
}

HRESULT Site::Record(const char* call, HRESULT result) noexcept {
    const HRESULT answer = Calls.Answer(call, result);
    const auto during = During.find(call);
    if (during != During.end()) {
        const auto run = std::exchange(during->second, nullptr);
        if (run) {
            run();
        }
    }
    return answer;
}

STDMETHODIMP Site::QueryInterface(REFIID iid, void** result) noexcept {
    const bool isInPlace = iid == __uuidof(IOleInPlaceSite) || iid == __uuidof(IOleWindow);
    if (std::ranges::find(Behaviour.Lacks, iid) != Behaviour.Lacks.end() ||
        (isInPlace && !Behaviour.OffersInPlace) ||
        (iid == __uuidof(IOleInPlaceSiteEx) && !Behaviour.OffersInPlaceEx)) {
        *result = nullptr;
        return E_NOINTERFACE;
    }
    return ComObject::QueryInterface(iid, result);
}

STDMETHODIMP Site::SaveObject() noexcept {
    return Record("SaveObject");
}

STDMETHODIMP Site::GetContainer(IOleContainer** container) noexcept {
    *container = nullptr;
    return Behaviour.ContainerAnswer;
}

STDMETHODIMP Site::ShowObject() noexcept {
    return Record("ShowObject");
}

STDMETHODIMP Site::GetWindow(HWND* window) noexcept {
    const HRESULT answer = Calls.AnswerOf("GetWindow");
    *window = SUCCEEDED(answer) ? window_ : nullptr;
    return answer;
}

STDMETHODIMP Site::CanInPlaceActivate() noexcept {
    return Record("CanInPlaceActivate", Behaviour.CanActivate ? S_OK : S_FALSE);
}

STDMETHODIMP Site::OnInPlaceActivate() noexcept {
    return Record("OnInPlaceActivate");
}

STDMETHODIMP Site::OnInPlaceActivateEx(BOOL* noRedraw, DWORD) noexcept {
    *noRedraw = FALSE;
    return Record("OnInPlaceActivateEx");
}

STDMETHODIMP Site::RequestUIActivate() noexcept {
    return Record("RequestUIActivate", Behaviour.LetsUIActivate);
}

STDMETHODIMP Site::OnUIActivate() noexcept {
    return Record("OnUIActivate");
}

STDMETHODIMP Site::GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                    LPRECT position, LPRECT clip,
                                    LPOLEINPLACEFRAMEINFO info) noexcept {
    if (Behaviour.FillsContext) {
        *frame = Com::ComPtr<Frame>(frame_).Detach();
        *document = Com::ComPtr<Frame>(frame_).Detach();
        *position = Position;
        *clip = {0, 0, 32767, 32767};
        info->hwndFrame = window_;
    }
    return Record("GetWindowContext");
}

STDMETHODIMP Site::OnUIDeactivate(BOOL) noexcept {
    return Record("OnUIDeactivate");
}

STDMETHODIMP Site::OnInPlaceDeactivate() noexcept {
    return Record("OnInPlaceDeactivate");
}

STDMETHODIMP Site::GetExtendedControl(IDispatch** control) noexcept {
    *control = nullptr;
    return E_NOTIMPL;
}

STDMETHODIMP Site::TranslateAccelerator(LPMSG, DWORD) noexcept {
    return Record("TranslateAccelerator", Behaviour.TakesKeys);
}

STDMETHODIMP Site::OnFocus(BOOL focused) noexcept {
    return Record(focused ? "OnFocus in" : "OnFocus out");
}

STDMETHODIMP Site::ShowPropertyFrame() noexcept {
    return Record("ShowPropertyFrame", Behaviour.ShowsPropertyFrame);
}

STDMETHODIMP Site::GetTypeInfoCount(UINT* count) noexcept {
    *count = 0;
    return S_OK;
}

STDMETHODIMP Site::Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result,
                          EXCEPINFO*, UINT*) noexcept {
    if (const auto failure = Failures.find(member); failure != Failures.end()) {
        return failure->second;
    }
    const auto found = Ambients.find(member);
    if (found == Ambients.end()) {
        return OtherAmbients;
    }
    *result = Com::Variant(found->second).Detach();
    return S_OK;
}

STDMETHODIMP_(void) Site::OnDataChange(FORMATETC*, STGMEDIUM*) noexcept {
    Record("OnDataChange");
}

STDMETHODIMP_(void) Site::OnViewChange(DWORD, LONG) noexcept {
    Record("OnViewChange");
}

STDMETHODIMP_(void) Site::OnSave() noexcept {
    Record("OnSave");
}

STDMETHODIMP_(void) Site::OnClose() noexcept {
    Record("OnClose");
}

STDMETHODIMP Site::OnChanged(DISPID property) noexcept {
    Changed.push_back(property);
    return Record("OnChanged");
}

} // namespace Quorvane
