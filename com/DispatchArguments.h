// SPDX-License-Identifier: MIT
// The arguments of a late-bound call, brought into the form that the member's types ask for.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include <optional>
#include <vector>

#include "com/Scoped.h"
#include "com/TypeLibrary.h"

namespace Quorvane::Com {

/// A call's arguments in the form that the rules of dispatch ask for: no argument for a null
/// pointer, and the name that marks a property's new value where a host leaves it out. Throws
/// HresultError(E_INVALIDARG) for arguments or names that are promised but not there.
DISPPARAMS NormalArguments(const DISPPARAMS* arguments, WORD flags);

/// The index of an argument that is a reference to nothing, which nobody may follow.
std::optional<UINT> FindNullReference(const DISPPARAMS& arguments) noexcept;

/// A copy of a call's arguments that fits a member. The caller's arguments must outlive it.
class DispatchArguments {
  public:
    /// Drops surplus arguments and replaces those that a by-reference parameter would refuse.
    /// Throws HresultError: DISP_E_BADPARAMCOUNT where arguments are missing, DISP_E_PARAMNOTFOUND
    /// for a name that no parameter has or that is given twice, DISP_E_TYPEMISMATCH for one that
    /// does not convert; `badArgument`, if not null, receives the index of the latter two. The
    /// arguments are well formed (see NormalArguments), and their references refer to something.
    DispatchArguments(const DispatchMember& member, const DISPPARAMS& arguments, UINT* badArgument);

    DISPPARAMS* Get() noexcept { return &parameters_; }

    /// The index among the caller's arguments of one that the member refused.
    UINT OriginalIndex(UINT index) const noexcept;

    /// Hands values that the member changed back to the caller's variables. Throws HresultError
    /// where a variable cannot take its new value.
    void HandBack();

  private:
    /// A by-reference argument whose variable has another type: the member gets a converted copy.
    struct Stand {
        std::size_t Index;
        /// As the caller passed it; borrowed.
        VARIANT Original;
        Variant Before;
        Variant Current;
    };

    void DropSurplus(std::size_t parameters);
    void RequireEachParameterOnce(std::size_t parameters, UINT* badArgument) const;
    std::size_t ParameterOf(std::size_t index, std::size_t parameters) const noexcept;
    void Fit(std::size_t index, const DispatchParameter& parameter);

    DISPPARAMS parameters_;
    std::vector<VARIANT> values_;
    UINT dropped_ = 0;
    /// What objects among the arguments stand for.
    std::vector<Variant> defaults_;
    std::vector<Stand> stands_;
};

} // namespace Quorvane::Com
