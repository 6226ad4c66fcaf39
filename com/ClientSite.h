// SPDX-License-Identifier: MIT
// The site that a host gives to a control, and the ambient properties it offers there.
#pragma once

#include <windows.h>

#include <ocidl.h>
#include <oleidl.h>

#include <optional>

#include "com/ComPtr.h"
#include "com/Scoped.h"

namespace Quorvane::Com {

/// A control's client site. A property that the host does not offer has the value that the function
/// names. Hosts say so with any failure, or with a value of no use; a failure of memory, of rights
/// or of the way to the host is thrown as HresultError.
class ClientSite {
  public:
    /// Replaces the site; null takes it away.
    void Set(IOleClientSite* site);

    const ComPtr<IOleClientSite>& Get() const noexcept { return site_; }

    /// Whether the host runs the form; without a word from the host it does.
    bool UserMode() const;

    /// Whether the host has stopped its form: the user is to have no effect on its controls.
    bool IsUIDead() const;

    /// The locale of the host's user interface, that of the user where the host names none.
    LCID LocaleId() const;

    /// The font of the form, null for none.
    ComPtr<IFontDisp> Font() const;

    /// The back colour of the form.
    std::optional<OLE_COLOR> BackColor() const;

    /// The window that message boxes belong to, null for none.
    HWND Window() const noexcept;

  private:
    /// An ambient property, Empty where the host does not offer it.
    Variant Ambient(DISPID property) const;

    ComPtr<IOleClientSite> site_;
    ComPtr<IDispatch> ambients_;
};

} // namespace Quorvane::Com
