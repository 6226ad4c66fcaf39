// SPDX-License-Identifier: MIT
// Reading and writing the persisted properties of the control, each with its default.
#pragma once

#include <windows.h>

#include <ocidl.h>
#include <olectl.h>

#include <functional>

#include "com/ComPtr.h"
#include "shared/Text.h"

namespace Quorvane {

/// Reads properties from a host's bag, each coerced to its type. A property that the bag lacks, in
/// whatever way it says so (E_INVALIDARG, an empty value, E_FAIL, a name or file not found), has
/// the default; any other failure is thrown as Com::HresultError.
class PropertyReader {
  public:
    PropertyReader(IPropertyBag& bag, IErrorLog* log) : bag_(bag), log_(log) {}

    Text ReadText(const wchar_t* name, Text byDefault) const;
    bool ReadFlag(const wchar_t* name, bool byDefault) const;
    OLE_COLOR ReadColor(const wchar_t* name, OLE_COLOR byDefault) const;
    /// The default is asked for only where the bag lacks the font.
    Com::ComPtr<IFontDisp> ReadFont(const wchar_t* name,
                                    const std::function<Com::ComPtr<IFontDisp>()>& byDefault) const;

  private:
    IPropertyBag& bag_;
    IErrorLog* log_;
};

/// Writes properties to a host's bag: those that differ from their default, or all of them.
/// Failures of the bag are thrown as Com::HresultError.
class PropertyWriter {
  public:
    PropertyWriter(IPropertyBag& bag, bool all) : bag_(bag), all_(all) {}

    void WriteText(const wchar_t* name, TextView value, TextView byDefault) const;
    void WriteFlag(const wchar_t* name, bool value, bool byDefault) const;
    void WriteColor(const wchar_t* name, OLE_COLOR value, OLE_COLOR byDefault) const;
    void WriteFont(const wchar_t* name, IFontDisp* value, IFontDisp* byDefault) const;

  private:
    IPropertyBag& bag_;
    bool all_;
};

} // namespace Quorvane
