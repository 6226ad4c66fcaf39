// SPDX-License-Identifier: MIT
// A host whose control's module can run out of memory.
#include "tests/memory/ScarceHost.h"

#include <olectl.h>

#include <gtest/gtest.h>

#include <algorithm>

#include "com/Scoped.h"
#include "tests/com/support/MessageBoxes.h"
#include "tests/com/support/TestBag.h"
#include "tests/com/support/Values.h"

namespace Quorvane {
namespace {

constexpr RECT Place{10, 10, 330, 210};
constexpr LONG Divisions = 3;
constexpr auto EditorClass = L"QuorvaneRuleEditor";

template <class I, class Object>
Com::ComPtr<I> Of(const Com::ComPtr<Object>& object) {
    auto result = object.template As<I>();
    EXPECT_TRUE(result);
    return result;
}

void HandleMessages() {
    MSG message{};
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
    }
}

Com::ComPtr<IStream> NewStream() {
    Com::ComPtr<IStream> stream;
    EXPECT_EQ(::CreateStreamOnHGlobal(nullptr, TRUE, stream.Put()), S_OK);
    return stream;
}

/// How often the timer has found the rule editor open.
int* editorsSeen = nullptr;

void CALLBACK CloseRuleEditor(HWND, UINT, UINT_PTR, DWORD) {
    HWND const editor = ::FindWindowW(EditorClass, nullptr);
    if (editor && ::IsWindowVisible(editor)) {
        ++*editorsSeen;
        ::PostMessageW(editor, WM_CLOSE, 0, 0);
    }
}

int CountWindows(HWND form) {
    int count = ::FindWindowW(EditorClass, nullptr) ? 1 : 0;
    ::EnumChildWindows(
        form,
        [](HWND, LPARAM counter) CALLBACK -> BOOL {
            ++*reinterpret_cast<int*>(counter);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&count));
    return count;
}

template <class I>
int ReferencesTo(I* object) {
    object->AddRef();
    return static_cast<int>(object->Release());
}

} // namespace

ScarceHost::ScarceHost()
    : memory_(module_.Handle()),
      form_(::CreateWindowExW(0, L"STATIC", L"form", WS_OVERLAPPEDWINDOW, 20, 20, 620, 520, nullptr,
                              nullptr, nullptr, nullptr)),
      site_(Com::MakeObject<Site>(form_, Place)), frame_(Com::MakeObject<PageFrame>()) {
    HandleMessages();
}

ScarceHost::~ScarceHost() {
    Clear();
    ::DestroyWindow(form_);
    HandleMessages();
    ::SetErrorInfo(0, nullptr);
}

HRESULT ScarceHost::CreateInstance(REFCLSID clsid, REFIID iid, void** result) {
    Com::ComPtr<IClassFactory> factory;
    const HRESULT found = module_.GetClassObject(clsid, __uuidof(IClassFactory), factory.PutVoid());
    return FAILED(found) ? found : factory->CreateInstance(nullptr, iid, result);
}

void ScarceHost::SetUserMode(bool userMode) {
    site_->Ambients[DISPID_AMBIENT_USERMODE] = Com::Variant(userMode);
}

HRESULT ScarceHost::Create() {
    control_.Reset();
    const HRESULT made =
        CreateInstance(__uuidof(::FISControl), __uuidof(_FISControl), control_.PutVoid());
    return FAILED(made) ? made : Of<IOleObject>(control_)->SetClientSite(site_.Get());
}

HRESULT ScarceHost::InitNew() {
    return Of<IPersistStreamInit>(control_)->InitNew();
}

HRESULT ScarceHost::LoadFromBag(const System& system) {
    const auto bag = Com::MakeObject<TestBag>(PropertiesOf(system));
    return Of<IPersistPropertyBag>(control_)->Load(bag.Get(), nullptr);
}

HRESULT ScarceHost::LoadFromStream() {
    EXPECT_EQ(stream_->Seek({}, STREAM_SEEK_SET, nullptr), S_OK);
    return Of<IPersistStreamInit>(control_)->Load(stream_.Get());
}

HRESULT ScarceHost::SaveToBag() {
    saved_ = Com::MakeObject<TestBag>().As<IPropertyBag>();
    return Of<IPersistPropertyBag>(control_)->Save(saved_.Get(), TRUE, TRUE);
}

HRESULT ScarceHost::SaveToStream() {
    stream_ = NewStream();
    return Of<IPersistStreamInit>(control_)->Save(stream_.Get(), TRUE);
}

HRESULT ScarceHost::Fire() {
    return control_->Fire();
}

HRESULT ScarceHost::Batch() {
    const MessageBoxes boxes;
    if (!folder_) {
        folder_.emplace();
    }
    const Com::Bstr path(folder_->Path());
    BSTR text = path.Get();
    LONG divisions = Divisions;
    return control_->BatchData(&text, &divisions);
}

HRESULT ScarceHost::Draw() {
    HDC const device = ::CreateCompatibleDC(nullptr);
    HBITMAP const bitmap = ::CreateBitmap(320, 200, 1, 32, nullptr);
    HGDIOBJ const former = ::SelectObject(device, bitmap);
    const RECTL bounds{0, 0, 320, 200};
    const HRESULT result = Of<IViewObject>(control_)->Draw(
        DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, device, &bounds, nullptr, nullptr, 0);
    ::SelectObject(device, former);
    ::DeleteObject(bitmap);
    ::DeleteDC(device);
    return result;
}

HRESULT ScarceHost::GetPicture() {
    FORMATETC format{CF_METAFILEPICT, nullptr, DVASPECT_CONTENT, -1, TYMED_MFPICT};
    STGMEDIUM medium{};
    const HRESULT result = Of<IDataObject>(control_)->GetData(&format, &medium);
    if (SUCCEEDED(result)) {
        ::ReleaseStgMedium(&medium);
    }
    return result;
}

HRESULT ScarceHost::Activate() {
    ::ShowWindow(form_, SW_SHOWNOACTIVATE);
    const HRESULT result = Of<IOleObject>(control_)->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr,
                                                            site_.Get(), 0, form_, &Place);
    ::RedrawWindow(form_, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
    HandleMessages();
    return result;
}

HRESULT ScarceHost::Deactivate() {
    return Of<IOleInPlaceObject>(control_)->InPlaceDeactivate();
}

HRESULT ScarceHost::OpenPage() {
    ::ShowWindow(form_, SW_SHOWNOACTIVATE);
    page_.Reset();
    HRESULT result = CreateInstance(__uuidof(::FIS_IO), __uuidof(IPropertyPage), page_.PutVoid());
    if (SUCCEEDED(result)) {
        result = page_->SetPageSite(frame_.Get());
    }
    IUnknown* object = control_.Get();
    if (SUCCEEDED(result)) {
        result = page_->SetObjects(1, &object);
    }
    const RECT place{10, 10, 410, 380};
    if (SUCCEEDED(result)) {
        result = page_->Activate(form_, &place, FALSE);
    }
    if (SUCCEEDED(result)) {
        result = page_->Show(SW_SHOW);
    }
    ::RedrawWindow(form_, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
    HandleMessages();
    return result;
}

HRESULT ScarceHost::ClosePage() {
    if (page_) {
        page_->Show(SW_HIDE);
        page_->Deactivate();
        page_->SetObjects(0, nullptr);
        page_->SetPageSite(nullptr);
        page_.Reset();
    }
    return S_OK;
}

HRESULT ScarceHost::OpenRuleEditor() {
    HWND const page = ::GetWindow(form_, GW_CHILD);
    HWND button = nullptr;
    while ((button = ::FindWindowExW(page, button, L"Button", nullptr)) != nullptr) {
        wchar_t caption[32]{};
        ::GetWindowTextW(button, caption, static_cast<int>(std::size(caption)));
        if (Com::ToText(caption) == u"Rule Editor...") {
            break;
        }
    }
    const MessageBoxes boxes;
    editorsSeen = &editorsSeen_;
    const UINT_PTR timer = ::SetTimer(nullptr, 0, 10, CloseRuleEditor);
    ::SendMessageW(button, BM_CLICK, 0, 0);
    ::KillTimer(nullptr, timer);
    HandleMessages();
    return button ? S_OK : E_FAIL;
}

bool ScarceHost::Infers() {
    Com::ComPtr<IDictionary> inputs;
    Com::ComPtr<IDictionary> outputs;
    if (FAILED(control_->get_InVals(inputs.Put())) || !inputs ||
        FAILED(control_->get_OutVals(outputs.Put())) || !outputs) {
        return false;
    }
    PutItem(inputs, u"A", 1.0);
    PutItem(inputs, u"B", 4.0);
    PutItem(inputs, u"C", 1.0);
    const HRESULT fired = control_->Fire();
    const Com::Variant sum = ItemOf(outputs, u"Sum");
    return fired == S_OK && sum.Type() == VT_R8 && sum.Get().dblVal == 8;
}

bool ScarceHost::HasSystem() {
    Com::ComPtr<IDictionary> inputs;
    return control_->get_InVals(inputs.Put()) == S_OK && inputs && control_->Fire() == S_OK;
}

bool ScarceHost::IsActive() {
    HWND window = nullptr;
    return Of<IOleInPlaceObject>(control_)->GetWindow(&window) == S_OK && ::IsWindow(window) &&
           ::GetWindow(window, GW_CHILD) != nullptr;
}

bool ScarceHost::HasSaved() {
    if (saved_) {
        return Of<IPersistPropertyBag>(control_)->Load(saved_.Get(), nullptr) == S_OK && Infers();
    }
    return LoadFromStream() == S_OK && Infers();
}

bool ScarceHost::HasBatch() {
    constexpr std::ptrdiff_t Points = (Divisions + 1) * (Divisions + 1);
    const std::string outputs = folder_->Read("OutData.txt");
    return std::ranges::count(outputs, '\n') == Points;
}

void ScarceHost::Clear() {
    ClosePage();
    if (control_) {
        // Loading replaces what the process keeps of this system.
        EXPECT_EQ(LoadFromBag(Adder), S_OK);
        const auto object = Of<IOleObject>(control_);
        object->Close(OLECLOSE_NOSAVE);
        object->SetClientSite(nullptr);
        control_.Reset();
    }
    saved_.Reset();
    stream_.Reset();
    HandleMessages();
}

int ScarceHost::Left() {
    return ReferencesTo(site_.Get()) - 1 + ReferencesTo(frame_.Get()) - 1 + CountWindows(form_);
}

} // namespace Quorvane
