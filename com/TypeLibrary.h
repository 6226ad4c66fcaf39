// SPDX-License-Identifier: MIT
// The module's embedded type library, and what dispatch needs to know of one interface in it.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include <memory>
#include <vector>

#include "com/ComPtr.h"

namespace Quorvane::Com {

/// One parameter of a member function.
struct DispatchParameter {
    /// Of a pointer parameter VT_BYREF and the type pointed to.
    VARTYPE Type;
    /// What an object given for the parameter must be; GUID_NULL where the library does not say.
    GUID Interface;
};

/// One member function of an interface, as a caller through IDispatch sees it.
struct DispatchMember {
    MEMBERID Id;
    INVOKEKIND Kind;
    /// In order; a property's new value is the last.
    std::vector<DispatchParameter> Parameters;
    /// The member takes nothing and returns an object: a property or method with an index may be
    /// meant for the object's default member.
    bool GivesObject;
};

/// The type information of a dual interface or a class, with its members.
struct TypeDescription {
    ComPtr<ITypeInfo> Info;
    std::vector<DispatchMember> Members;

    /// The member of that id and kind, null where there is none.
    const DispatchMember* Find(MEMBERID id, int kinds) const noexcept;
};

/// The type library in the module's resources. Throws HresultError.
ComPtr<ITypeLib> LoadEmbeddedLibrary();

/// The description of the type of that GUID in the embedded library. All objects that need it
/// share one, which goes with the last of them; it is never released by unloading the module.
/// Throws HresultError, TYPE_E_ELEMENTNOTFOUND for a GUID that the library lacks.
std::shared_ptr<const TypeDescription> DescribeEmbeddedType(REFGUID guid);

/// The description of a type that lives in some other library. Throws HresultError.
std::shared_ptr<const TypeDescription> DescribeType(ComPtr<ITypeInfo> info);

} // namespace Quorvane::Com
