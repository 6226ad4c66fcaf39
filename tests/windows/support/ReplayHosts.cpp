// SPDX-License-Identifier: MIT
// The containers that people use: what their sites are like, and their calls in order.
#include <olectl.h>

#include "com/Fonts.h"
#include "tests/windows/support/Replay.h"

namespace Quorvane {
namespace {

using namespace Steps;

void OfferColors(Site& site, VARTYPE type) {
    for (const DISPID property : {DISPID_AMBIENT_BACKCOLOR, DISPID_AMBIENT_FORECOLOR}) {
        Com::Variant color;
        color.Get().vt = type;
        color.Get().ulVal = 0x00C0C0C0;
        site.Ambients[property] = color;
    }
}

void OfferFont(Site& site) {
    site.Ambients[DISPID_AMBIENT_FONT] =
        Com::Variant(static_cast<IDispatch*>(NewDialogFont().Get()));
}

void OfferFlags(Site& site) {
    site.Ambients[DISPID_AMBIENT_UIDEAD] = Com::Variant(false);
    site.Ambients[DISPID_AMBIENT_SHOWGRABHANDLES] = Com::Variant(false);
    site.Ambients[DISPID_AMBIENT_SHOWHATCHING] = Com::Variant(false);
    site.Ambients[DISPID_AMBIENT_SUPPORTSMNEMONICS] = Com::Variant(true);
}

/// Reads its properties by reflection: what it does not have, it answers with Empty.
void PrepareAxHost(Site& site) {
    OfferColors(site, VT_UI4);
    OfferFont(site);
    OfferFlags(site);
    site.OtherAmbients = S_OK;
    site.Behaviour.ContainerAnswer = S_OK;
    site.Calls.Answers["SaveObject"] = E_NOTIMPL;
    site.Calls.Answers["ShowPropertyFrame"] = S_OK;
}

/// The form behind such a host, without a window of its own: its answers are those of code that
/// throws.
void PrepareBareHost(Site& site) {
    site.Ambients.clear();
    site.OtherAmbients = E_FAIL;
    site.Behaviour.OffersInPlace = false;
}

void PrepareAtl(Site& site) {
    OfferColors(site, VT_UI4);
    OfferFont(site);
    site.Behaviour.OffersInPlaceEx = true;
    site.Behaviour.ContainerAnswer = S_OK;
}

void PrepareMfc(Site& site) {
    OfferColors(site, VT_I4);
    OfferFont(site);
    OfferFlags(site);
}

/// It has the modes and colours, but no locale.
void PrepareQt(Site& site) {
    site.Ambients.erase(DISPID_AMBIENT_LOCALEID);
    OfferColors(site, VT_UI4);
    OfferFlags(site);
    // It gives its font as a text where it has no font object.
    site.Ambients[DISPID_AMBIENT_FONT] = Com::Variant(TextView(u"Tahoma,8"));
    site.Calls.Answers["SaveObject"] = E_NOTIMPL;
}

void PrepareWx(Site& site) {
    site.Ambients.erase(DISPID_AMBIENT_LOCALEID);
    site.Behaviour.OffersInPlaceEx = true;
}

/// Its font is Nothing.
void PrepareLazarus(Site& site) {
    OfferColors(site, VT_I4);
    OfferFlags(site);
    site.Ambients[DISPID_AMBIENT_FONT] = Com::Variant(static_cast<IDispatch*>(nullptr));
}

void PrepareDelphi(Site& site) {
    OfferColors(site, VT_I4);
    OfferFont(site);
    OfferFlags(site);
}

void PrepareBasic(Site& site) {
    OfferColors(site, VT_I4);
    OfferFont(site);
    OfferFlags(site);
    site.Behaviour.ContainerAnswer = S_OK;
    site.Behaviour.ShowsPropertyFrame = S_OK;
}

/// Offers what a page says; where the page says nothing, the property is not there.
void PrepareExplorer(Site& site) {
    OfferColors(site, VT_UI4);
    OfferFont(site);
    site.OtherAmbients = E_FAIL;
    site.Behaviour.ContainerAnswer = S_OK;
}

/// The same with the interfaces for controls without windows, of which this one uses the extended
/// site.
void PrepareWindowlessExplorer(Site& site) {
    PrepareExplorer(site);
    site.Behaviour.OffersInPlaceEx = true;
}

/// A compound document knows nothing of controls.
void PrepareDocument(Site& site) {
    site.Ambients.clear();
    site.Behaviour.Lacks = {__uuidof(IDispatch), __uuidof(IOleControlSite)};
}

} // namespace

const std::vector<ReplayedHost>& ReplayedHosts() {
    static const std::vector<ReplayedHost> hosts = {
        {"AxHostNew",
         PrepareAxHost,
         {GetMiscStatus, QuickActivate, FreezeEvents, InitNew, GetExtent, AskForCategories,
          ThawEvents, ActivateInPlace, GetWindow, SetExtent, GetExtent, SetObjectRects,
          GetControlInfo},
         {DisconnectEvents, DeactivateUI, DeactivateInPlace, SaveBag, SaveStream,
          CloseWithoutSaving, TakeSiteAway}},
        {"AxHostOld",
         PrepareAxHost,
         {GetMiscStatus, SetClientSite, FreezeEvents, LoadStream, LoadBag, ThawEvents, GetExtent,
          ActivateInPlace, ConnectEvents, GetWindow, SetExtent, SetObjectRects, TellOfAmbients,
          AskForPages},
         {SaveBag, SaveStream, DisconnectEvents, DeactivateInPlace, CloseWithoutSaving,
          TakeSiteAway}},
        {"BareAxHost",
         PrepareBareHost,
         {GetMiscStatus, SetClientSite, LoadFormerStream, ConnectEvents, TellOfAmbients},
         {DisconnectEvents, CloseWithoutSaving, TakeSiteAway}},
        {"Atl",
         PrepareAtl,
         {GetMiscStatus, SetClientSite, InitNew, AdviseObject, AdviseView, GetViewStatus,
          SetHostNames, SetExtent, GetExtent, ActivateInPlace, GetWindow, ConnectEvents,
          SetObjectRects},
         {DisconnectEvents, CloseWithoutSaving, TakeSiteAway}},
        {"AtlAttached",
         PrepareAtl,
         {GetMiscStatus, SetClientSite, AdviseObject, AdviseView, SetHostNames, SetExtent,
          GetExtent, ActivateInPlace, ConnectEvents},
         {DisconnectEvents, CloseWithoutSaving, TakeSiteAway}},
        {"Mfc",
         PrepareMfc,
         {GetMiscStatus, QuickActivate, LoadStream, SetHostNames, GetControlInfo, SetExtent,
          TellOfAmbients, ActivateInPlace, GetWindow, SetObjectRects, ActivateUI},
         {DeactivateUI, DisconnectEvents, CloseWithoutSaving, TakeSiteAway}},
        {"Qt",
         PrepareQt,
         {GetMiscStatus, SetClientSite, InitNew, AdviseObject, AdviseView, SetHostNames, SetExtent,
          GetExtent, ActivateInPlace, TellOfAmbients, GetControlInfo, GetUserType, ConnectEvents,
          SetObjectRects, ActivateUI},
         {DisconnectEvents, DeactivateInPlace, TakeSiteAway}},
        {"Wx",
         PrepareWx,
         {ConnectEvents, AdviseObject, SetHostNames, Run, GetMiscStatus, SetClientSite, InitNew,
          GetWindow, SetObjectRects, ActivateInPlace, Show, GetWindow, Hide, GetExtent, SetExtent,
          Show, SetObjectRects, Draw},
         {DisconnectEvents, DeactivateInPlace, DeactivateUI, Hide, CloseWithoutSaving,
          TakeSiteAway}},
        {"Lazarus",
         PrepareLazarus,
         {SetClientSite, SetHostNames, SetExtent, ActivateInPlace, ConnectEvents, SetObjectRects},
         {DisconnectEvents, TakeSiteAway, CloseWithoutSaving}},
        {"Delphi",
         PrepareDelphi,
         {GetMiscStatus, SetClientSite, LoadStream, ConnectEvents, GetControlInfo, SetExtent,
          ActivateInPlace, GetExtent, SetObjectRects, TellOfAmbients, ActivateUI},
         {SaveStream, DeactivateUI, DisconnectEvents, CloseWithoutSaving, TakeSiteAway}},
        {"DelphiNew",
         PrepareDelphi,
         {GetMiscStatus, SetClientSite, InitNew, ConnectEvents, GetControlInfo, ActivateInPlace,
          SetExtent, SetObjectRects, DoPrimaryVerb},
         {DeactivateUI, DisconnectEvents, CloseWithoutSaving, TakeSiteAway}},
        {"Basic",
         PrepareBasic,
         {QuickActivate, SetContentExtent, FreezeEvents, LoadBag, SetExtent, GetExtent,
          GetControlInfo, AdviseObject, AdviseView, ThawEvents, Draw, ActivateInPlace,
          SetObjectRects, TellOfAmbients, ActivateUI, DeactivateUI},
         {FreezeEvents, SaveBag, DeactivateInPlace, DisconnectEvents, CloseWithoutSaving,
          TakeSiteAway}},
        {"BasicNew",
         PrepareBasic,
         {QuickActivate, InitNewBag, SetExtent, AdviseView, ActivateInPlace, SetObjectRects},
         {SaveBag, DisconnectEvents, CloseAndSave, TakeSiteAway}},
        {"Explorer",
         PrepareExplorer,
         {AskForSafety, QuickActivate, LoadBag, GetViewStatus, GetNaturalExtent, SetExtent, Draw,
          GetControlInfo, AskForWindowless, ActivateInPlace, SetObjectRects, ActivateUI},
         {DeactivateUI, DeactivateInPlace, DisconnectEvents, CloseWithoutSaving, TakeSiteAway}},
        {"WindowlessExplorer",
         PrepareWindowlessExplorer,
         {AskForSafety, GetMiscStatus, SetClientSite, LoadBag, AdviseView, GetViewStatus, SetExtent,
          Draw, AskForWindowless, Show, ConnectEvents, SetObjectRects, ActivateUI},
         {DeactivateUI, DeactivateInPlace, DisconnectEvents, CloseAndSave, TakeSiteAway}},
        {"Document",
         PrepareDocument,
         {SetClientSite, InitNewStorage, SetHostNames, AdviseObject, Run, SetExtent, GetPicture,
          Show, DoPrimaryVerb, ConnectEvents},
         {SaveStorage, DeactivateUI, Hide, DisconnectEvents, CloseAndSave, TakeSiteAway}},
        {"DocumentAgain",
         PrepareDocument,
         {LoadStorage, SetClientSite, SetHostNames, AdviseObject, Draw, GetPicture, DoPrimaryVerb,
          ConnectEvents},
         {SaveStorage, DisconnectEvents, CloseWithoutSaving, TakeSiteAway}},
    };
    return hosts;
}

} // namespace Quorvane
