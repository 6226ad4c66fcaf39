// SPDX-License-Identifier: MIT
// HostObject: the object "Host" that a form's script sees.
#pragma once

#include "host/container/ComObject.h"

#include <functional>
#include <map>
#include <optional>
#include <string>

#include <oleauto.h>

namespace Quorvane::Host {

/// What the host lends to the object.
struct HostServices {
    /// Writes one line.
    std::function<void(const std::wstring& line)> Print;
    /// Values given by name on the command line.
    std::map<std::wstring, std::wstring> Options;
    /// Where the script may write files: an absolute path without a backslash at its end.
    std::wstring OutputFolder;
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
class HostObject final : public ComObject<IDispatch> {
  public:
    explicit HostObject(HostServices services) : services_(std::move(services)) {}

    /// Makes the script end with this exit code. The first call counts.
    void EndScript(int exitCode);

    /// The exit code, once the script is to end.
    std::optional<int> ExitCode() const { return exitCode_; }

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** info) noexcept override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                            DISPID* ids) noexcept override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID locale, WORD flags,
                                     DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* error,
                                     UINT*) noexcept override;

  private:
    ~HostObject() override = default;

    HRESULT Call(DISPID id, const DISPPARAMS& arguments, LCID locale, VARIANT* result);
    void Print(const DISPPARAMS& arguments, LCID locale) const;
    void Option(const DISPPARAMS& arguments, VARIANT* result) const;
    void Quit(const DISPPARAMS& arguments);

    HostServices services_;
    std::optional<int> exitCode_;
};

} // namespace Quorvane::Host
