// SPDX-License-Identifier: MIT
// HostObject: the object "Host" that a form's script sees.
#pragma once

#include <oleauto.h>

#include <functional>
#include <map>
#include <optional>

#include "com/ComObject.h"
#include "com/Scoped.h"
#include "shared/Text.h"

namespace Quorvane::Host {

/// What the host lends to the object.
struct HostServices {
    /// Writes one line.
    std::function<void(const Text& line)> Print;
    /// Values given by name on the command line.
    std::map<Text, Text> Options;
    /// Where the script may write files: an absolute path without a backslash at its end.
    Text OutputFolder;
};

/// The script's view of its host:
///
///     Host.Print [value, ...]      writes the values as one line, a blank between them; also Echo
///     Host.Option(name [, else])   the text given as name=text, or the second value (or Empty)
///     Host.OutputFolder            the folder for files that the script makes
///     Host.Quit [code]             ends the script; the code (0) is the program's exit code
///
/// A script ends by an error that its next call of Host raises: at once where it calls Quit itself,
/// later where an event procedure does.
class HostObject final : public Com::ComObject<IDispatch> {
  public:
    explicit HostObject(HostServices services) : services_(std::move(services)) {}

    /// Makes the script end with this exit code. The first call counts.
    void EndScript(int exitCode);

    /// The exit code, once the script is to end.
    std::optional<int> ExitCode() const { return exitCode_; }

    STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override;
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo** info) noexcept override;
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                               DISPID* ids) noexcept override;
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID locale, WORD flags, DISPPARAMS* arguments,
                        VARIANT* result, EXCEPINFO* error, UINT*) noexcept override;

  private:
    ~HostObject() override = default;

    HRESULT Call(DISPID id, const DISPPARAMS& arguments, LCID locale, Com::Variant& answer);
    void Print(const DISPPARAMS& arguments, LCID locale) const;
    Com::Variant Option(const DISPPARAMS& arguments) const;
    void Quit(const DISPPARAMS& arguments);

    HostServices services_;
    std::optional<int> exitCode_;
};

} // namespace Quorvane::Host
