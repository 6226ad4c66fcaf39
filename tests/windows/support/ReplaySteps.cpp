// SPDX-License-Identifier: MIT
// The single calls of containers.
#include <objsafe.h>
#include <olectl.h>

#include "com/ErrorBoundary.h"
#include "com/ObjectSafety.h"
#include "com/PropertyBrowsing.h"
#include "com/Scoped.h"
#include "tests/com/support/Systems.h"
#include "tests/windows/support/Picture.h"
#include "tests/windows/support/Replay.h"

namespace Quorvane {
namespace {

constexpr SIZEL Extent{8000, 5000};

Com::ComPtr<IStream> NewStream() {
    Com::ComPtr<IStream> stream;
    Com::Check(::CreateStreamOnHGlobal(nullptr, TRUE, stream.Put()));
    return stream;
}

Com::ComPtr<IStorage> NewStorage() {
    Com::ComPtr<ILockBytes> bytes;
    Com::ComPtr<IStorage> storage;
    Com::Check(::CreateILockBytesOnHGlobal(nullptr, TRUE, bytes.Put()));
    Com::Check(::StgCreateDocfileOnILockBytes(
        bytes.Get(), STGM_CREATE | STGM_READWRITE | STGM_SHARE_EXCLUSIVE, 0, storage.Put()));
    return storage;
}

/// Another control with the system Adder, in a form's design mode, of which a container keeps the
/// state.
Com::ComPtr<IUnknown> KeptControl() {
    auto control = NewControl();
    const auto bag = Com::MakeObject<TestBag>(PropertiesOf(Adder));
    Com::Check(control.As<IPersistPropertyBag>()->Load(bag.Get(), nullptr));
    return control;
}

HRESULT Loaded(Replay& replay, HRESULT result) {
    replay.IsLoaded = SUCCEEDED(result);
    return result;
}

HRESULT Load(Replay& replay, IStream* stream) {
    Com::Check(stream->Seek({}, STREAM_SEEK_SET, nullptr));
    return Loaded(replay, replay.As<IPersistStreamInit>()->Load(stream));
}

/// A stream as it was before the extent was kept in it: one caption and the system.
HRESULT LoadOld(Replay& replay) {
    const auto stream = NewStream();
    const auto write = [&](const void* bytes, std::size_t size) {
        Com::Check(stream->Write(bytes, static_cast<ULONG>(size), nullptr));
    };
    const auto number = [&](auto value) { write(&value, sizeof value); };
    const auto properties = PropertiesOf(Adder);
    number(std::uint32_t{0x42505651});
    number(std::uint16_t{1});
    number(static_cast<std::uint16_t>(properties.size()));
    for (const auto& [name, value] : properties) {
        const TextView text = Com::View(value.Get().bstrVal);
        number(static_cast<std::uint16_t>(name.size()));
        write(name.data(), name.size() * sizeof(char16_t));
        number(std::uint16_t{VT_BSTR});
        number(static_cast<std::uint32_t>(text.size()));
        write(text.data(), text.size() * sizeof(char16_t));
    }
    return Load(replay, stream.Get());
}

HRESULT DoVerb(Replay& replay, LONG verb) {
    RECT place = replay.TheSite().Position;
    return replay.As<IOleObject>()->DoVerb(verb, nullptr, &replay.TheSite(), 0,
                                           replay.Window.Window(), &place);
}

} // namespace

namespace Steps {

const ReplayStep GetMiscStatus{"IOleObject::GetMiscStatus", [](Replay& replay) {
                                   DWORD status = 0;
                                   return replay.As<IOleObject>()->GetMiscStatus(DVASPECT_CONTENT,
                                                                                 &status);
                               }};
const ReplayStep SetClientSite{"IOleObject::SetClientSite", [](Replay& replay) {
                                   return replay.As<IOleObject>()->SetClientSite(&replay.TheSite());
                               }};
const ReplayStep QuickActivate{
    "IQuickActivate::QuickActivate", [](Replay& replay) {
        QACONTAINER container{};
        container.cbSize = sizeof container;
        container.pClientSite = &replay.TheSite();
        container.pPropertyNotifySink = &replay.TheSite();
        container.pUnkEventSink = replay.Events.Get();
        container.dwAmbientFlags = QACONTAINER_USERMODE;
        QACONTROL control{};
        control.cbSize = sizeof control;
        const HRESULT result = replay.As<IQuickActivate>()->QuickActivate(&container, &control);
        replay.EventCookie = control.dwEventCookie;
        return result;
    }};
const ReplayStep SetHostNames{"IOleObject::SetHostNames", [](Replay& replay) {
                                  return replay.As<IOleObject>()->SetHostNames(L"Host", nullptr);
                              }};
const ReplayStep Run{"OleRun", [](Replay& replay) { return ::OleRun(replay.Control.Get()); }};
const ReplayStep AdviseObject{"IOleObject::Advise", [](Replay& replay) {
                                  return replay.As<IOleObject>()->Advise(&replay.TheSite(),
                                                                         &replay.ObjectCookie);
                              }};
const ReplayStep AdviseView{"IViewObject::SetAdvise", [](Replay& replay) {
                                return replay.As<IViewObject>()->SetAdvise(DVASPECT_CONTENT, 0,
                                                                           &replay.TheSite());
                            }};
const ReplayStep ConnectEvents{
    "IConnectionPoint::Advise", [](Replay& replay) {
        Com::ComPtr<IConnectionPoint> point;
        const HRESULT found = replay.As<IConnectionPointContainer>()->FindConnectionPoint(
            __uuidof(__FISControl), point.Put());
        return FAILED(found) ? found : point->Advise(replay.Events.Get(), &replay.EventCookie);
    }};
const ReplayStep DisconnectEvents{
    "IConnectionPoint::Unadvise", [](Replay& replay) {
        Com::ComPtr<IConnectionPoint> point;
        const HRESULT found = replay.As<IConnectionPointContainer>()->FindConnectionPoint(
            __uuidof(__FISControl), point.Put());
        return FAILED(found) ? found : point->Unadvise(replay.EventCookie);
    }};

const ReplayStep InitNew{"IPersistStreamInit::InitNew",
                         [](Replay& replay) { return replay.As<IPersistStreamInit>()->InitNew(); }};
const ReplayStep InitNewStorage{
    "IPersistStorage::InitNew",
    [](Replay& replay) { return replay.As<IPersistStorage>()->InitNew(NewStorage().Get()); }};
const ReplayStep InitNewBag{"IPersistPropertyBag::InitNew", [](Replay& replay) {
                                return replay.As<IPersistPropertyBag>()->InitNew();
                            }};
const ReplayStep LoadStream{
    "IPersistStreamInit::Load", [](Replay& replay) {
        const auto stream = NewStream();
        Com::Check(KeptControl().As<IPersistStreamInit>()->Save(stream.Get(), TRUE));
        return Load(replay, stream.Get());
    }};
const ReplayStep LoadFormerStream{"IPersistStreamInit::Load of a former version", LoadOld};
const ReplayStep LoadStorage{
    "IPersistStorage::Load", [](Replay& replay) {
        const auto storage = NewStorage();
        Com::Check(KeptControl().As<IPersistStorage>()->Save(storage.Get(), TRUE));
        return Loaded(replay, replay.As<IPersistStorage>()->Load(storage.Get()));
    }};
const ReplayStep LoadBag{
    "IPersistPropertyBag::Load", [](Replay& replay) {
        return Loaded(replay, replay.As<IPersistPropertyBag>()->Load(replay.Bag.Get(), nullptr));
    }};
const ReplayStep SaveStream{
    "IPersistStreamInit::Save",
    [](Replay& replay) { return replay.As<IPersistStreamInit>()->Save(NewStream().Get(), TRUE); }};
const ReplayStep SaveStorage{"IPersistStorage::Save", [](Replay& replay) {
                                 const auto persist = replay.As<IPersistStorage>();
                                 const HRESULT saved = persist->Save(NewStorage().Get(), TRUE);
                                 persist->SaveCompleted(nullptr);
                                 return saved;
                             }};
const ReplayStep SaveBag{"IPersistPropertyBag::Save", [](Replay& replay) {
                             const auto bag = Com::MakeObject<TestBag>();
                             return replay.As<IPersistPropertyBag>()->Save(bag.Get(), TRUE, TRUE);
                         }};

const ReplayStep FreezeEvents{"IOleControl::FreezeEvents", [](Replay& replay) {
                                  return replay.As<IOleControl>()->FreezeEvents(-1);
                              }};
const ReplayStep ThawEvents{"IOleControl::FreezeEvents no more", [](Replay& replay) {
                                return replay.As<IOleControl>()->FreezeEvents(FALSE);
                            }};
const ReplayStep GetControlInfo{"IOleControl::GetControlInfo", [](Replay& replay) {
                                    CONTROLINFO info{};
                                    info.cb = sizeof info;
                                    return replay.As<IOleControl>()->GetControlInfo(&info);
                                }};
const ReplayStep TellOfAmbients{
    "IOleControl::OnAmbientPropertyChange", [](Replay& replay) {
        for (const DISPID property : {DISPID_AMBIENT_BACKCOLOR, DISPID_AMBIENT_FORECOLOR,
                                      DISPID_AMBIENT_FONT, DISPID_AMBIENT_USERMODE}) {
            const HRESULT result = replay.As<IOleControl>()->OnAmbientPropertyChange(property);
            if (FAILED(result)) {
                return result;
            }
        }
        return replay.As<IOleControl>()->OnAmbientPropertyChange(DISPID_UNKNOWN);
    }};
const ReplayStep AskForSafety{"IObjectSafety::SetInterfaceSafetyOptions",
                              [](Replay& replay) {
                                  return replay.As<IObjectSafety>()->SetInterfaceSafetyOptions(
                                      __uuidof(IDispatch), INTERFACESAFE_FOR_UNTRUSTED_CALLER,
                                      INTERFACESAFE_FOR_UNTRUSTED_CALLER);
                              },
                              true};
/// The control has a window; it says so by lacking the interface.
const ReplayStep AskForWindowless{"IOleInPlaceObjectWindowless", [](Replay& replay) {
                                      return replay.As<IOleInPlaceObjectWindowless>() ? E_UNEXPECTED
                                                                                      : S_OK;
                                  }};
const ReplayStep AskForPages{"ISpecifyPropertyPages::GetPages", [](Replay& replay) {
                                 CAUUID pages{};
                                 const HRESULT result =
                                     replay.As<ISpecifyPropertyPages>()->GetPages(&pages);
                                 ::CoTaskMemFree(pages.pElems);
                                 return result;
                             }};
const ReplayStep AskForCategories{
    "ICategorizeProperties::MapPropertyToCategory", [](Replay& replay) {
        int category = 0;
        return replay.As<Com::ICategorizeProperties>()->MapPropertyToCategory(DISPID_FONT,
                                                                              &category);
    }};
const ReplayStep GetUserType{"IOleObject::GetUserType", [](Replay& replay) {
                                 LPOLESTR name = nullptr;
                                 const HRESULT result = replay.As<IOleObject>()->GetUserType(
                                     USERCLASSTYPE_SHORT, &name);
                                 ::CoTaskMemFree(name);
                                 return result;
                             }};
const ReplayStep GetViewStatus{"IViewObjectEx::GetViewStatus", [](Replay& replay) {
                                   DWORD status = 0;
                                   return replay.As<IViewObjectEx>()->GetViewStatus(&status);
                               }};
const ReplayStep GetNaturalExtent{"IViewObjectEx::GetNaturalExtent",
                                  [](Replay& replay) {
                                      DVEXTENTINFO info{};
                                      info.cb = sizeof info;
                                      SIZEL size{};
                                      return replay.As<IViewObjectEx>()->GetNaturalExtent(
                                          DVASPECT_CONTENT, -1, nullptr, nullptr, &info, &size);
                                  },
                                  true};

const ReplayStep SetExtent{"IOleObject::SetExtent", [](Replay& replay) {
                               SIZEL extent = Extent;
                               return replay.As<IOleObject>()->SetExtent(DVASPECT_CONTENT, &extent);
                           }};
const ReplayStep SetContentExtent{"IQuickActivate::SetContentExtent", [](Replay& replay) {
                                      SIZEL extent = Extent;
                                      return replay.As<IQuickActivate>()->SetContentExtent(&extent);
                                  }};
const ReplayStep GetExtent{"IOleObject::GetExtent", [](Replay& replay) {
                               SIZEL extent{};
                               return replay.As<IOleObject>()->GetExtent(DVASPECT_CONTENT, &extent);
                           }};
const ReplayStep GetWindow{"IOleWindow::GetWindow",
                           [](Replay& replay) {
                               HWND window = nullptr;
                               return replay.As<IOleInPlaceObject>()->GetWindow(&window);
                           },
                           true};
const ReplayStep SetObjectRects{"IOleInPlaceObject::SetObjectRects", [](Replay& replay) {
                                    const RECT place = replay.TheSite().Position;
                                    return replay.As<IOleInPlaceObject>()->SetObjectRects(&place,
                                                                                          &place);
                                }};
const ReplayStep ActivateInPlace{"OLEIVERB_INPLACEACTIVATE", [](Replay& replay) {
                                     return DoVerb(replay, OLEIVERB_INPLACEACTIVATE);
                                 }};
const ReplayStep Show{"OLEIVERB_SHOW",
                      [](Replay& replay) { return DoVerb(replay, OLEIVERB_SHOW); }};
const ReplayStep ActivateUI{"OLEIVERB_UIACTIVATE",
                            [](Replay& replay) { return DoVerb(replay, OLEIVERB_UIACTIVATE); }};
const ReplayStep DoPrimaryVerb{"OLEIVERB_PRIMARY",
                               [](Replay& replay) { return DoVerb(replay, OLEIVERB_PRIMARY); }};
const ReplayStep Hide{"OLEIVERB_HIDE",
                      [](Replay& replay) { return DoVerb(replay, OLEIVERB_HIDE); }};
const ReplayStep DeactivateUI{"IOleInPlaceObject::UIDeactivate", [](Replay& replay) {
                                  return replay.As<IOleInPlaceObject>()->UIDeactivate();
                              }};
const ReplayStep DeactivateInPlace{"IOleInPlaceObject::InPlaceDeactivate", [](Replay& replay) {
                                       return replay.As<IOleInPlaceObject>()->InPlaceDeactivate();
                                   }};
const ReplayStep Draw{"IViewObject::Draw", [](Replay& replay) {
                          Picture paper(320, 200);
                          const RECTL bounds{0, 0, 320, 200};
                          return replay.As<IViewObject>()->Draw(DVASPECT_CONTENT, -1, nullptr,
                                                                nullptr, nullptr, paper.Context(),
                                                                &bounds, nullptr, nullptr, 0);
                      }};
const ReplayStep GetPicture{
    "IDataObject::GetData", [](Replay& replay) {
        FORMATETC format{CF_ENHMETAFILE, nullptr, DVASPECT_CONTENT, -1, TYMED_ENHMF};
        STGMEDIUM medium{};
        const HRESULT result = replay.As<IDataObject>()->GetData(&format, &medium);
        ::ReleaseStgMedium(&medium);
        return result;
    }};

const ReplayStep CloseWithoutSaving{"IOleObject::Close", [](Replay& replay) {
                                        return replay.As<IOleObject>()->Close(OLECLOSE_NOSAVE);
                                    }};
const ReplayStep CloseAndSave{"IOleObject::Close with saving", [](Replay& replay) {
                                  return replay.As<IOleObject>()->Close(OLECLOSE_SAVEIFDIRTY);
                              }};
const ReplayStep TakeSiteAway{"IOleObject::SetClientSite none", [](Replay& replay) {
                                  return replay.As<IOleObject>()->SetClientSite(nullptr);
                              }};

} // namespace Steps
} // namespace Quorvane
