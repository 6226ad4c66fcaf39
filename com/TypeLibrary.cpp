// SPDX-License-Identifier: MIT
// Loading the embedded type library and reading the members of its interfaces.
#include "com/TypeLibrary.h"

#include <oleauto.h>

#include <algorithm>
#include <mutex>

#include "com/ErrorBoundary.h"
#include "com/Module.h"
#include "com/Scoped.h"
#include "win/SlimLock.h"

namespace Quorvane::Com {
namespace {

/// The attributes of a type, which the type information lends and takes back.
class TypeAttributes {
  public:
    explicit TypeAttributes(ITypeInfo& info) : info_(info) {
        Check(info_.GetTypeAttr(&attributes_));
    }
    ~TypeAttributes() { info_.ReleaseTypeAttr(attributes_); }
    TypeAttributes(const TypeAttributes&) = delete;
    TypeAttributes& operator=(const TypeAttributes&) = delete;
    const TYPEATTR* operator->() const noexcept { return attributes_; }

  private:
    ITypeInfo& info_;
    TYPEATTR* attributes_ = nullptr;
};

/// The description of a function, lent in the same way.
class Function {
  public:
    Function(ITypeInfo& info, UINT index) : info_(info) {
        Check(info_.GetFuncDesc(index, &description_));
    }
    ~Function() { info_.ReleaseFuncDesc(description_); }
    Function(const Function&) = delete;
    Function& operator=(const Function&) = delete;
    const FUNCDESC* operator->() const noexcept { return description_; }

  private:
    ITypeInfo& info_;
    FUNCDESC* description_ = nullptr;
};

// NOLINTBEGIN(misc-no-recursion): types nest, as deep as the library declares them.

VARTYPE TypeOf(ITypeInfo& info, const TYPEDESC& type);

/// The type behind a name: an alias gives what it stands for, an interface an object.
VARTYPE TypeOfReference(ITypeInfo& info, HREFTYPE reference) {
    ComPtr<ITypeInfo> named;
    if (FAILED(info.GetRefTypeInfo(reference, named.Put()))) {
        // The library of the name is not on this machine; ours refer to foreign objects only.
        return VT_DISPATCH;
    }
    const TypeAttributes attributes(*named);
    switch (attributes->typekind) {
    case TKIND_ALIAS:
        return TypeOf(*named, attributes->tdescAlias);
    case TKIND_ENUM:
        return VT_I4;
    case TKIND_DISPATCH:
    case TKIND_COCLASS:
        return VT_DISPATCH;
    case TKIND_INTERFACE:
        return attributes->guid == __uuidof(IUnknown) ? VT_UNKNOWN : VT_DISPATCH;
    default:
        return VT_RECORD;
    }
}

bool IsObject(VARTYPE type) noexcept {
    return type == VT_DISPATCH || type == VT_UNKNOWN;
}

VARTYPE TypeOf(ITypeInfo& info, const TYPEDESC& type) {
    if (type.vt == VT_USERDEFINED) {
        return TypeOfReference(info, type.hreftype);
    }
    if (type.vt != VT_PTR) {
        return type.vt;
    }
    const VARTYPE target = TypeOf(info, *type.lptdesc);
    // A pointer to an interface is an object by value, a pointer to that a reference to it.
    const bool isInterface = type.lptdesc->vt == VT_USERDEFINED && IsObject(target);
    return isInterface ? target : static_cast<VARTYPE>(target | VT_BYREF);
}

// NOLINTEND(misc-no-recursion)

/// The interface that a pointer to a named one means; GUID_NULL for any other type.
GUID InterfaceOf(ITypeInfo& info, const TYPEDESC& type) {
    ComPtr<ITypeInfo> named;
    if (type.vt != VT_PTR || type.lptdesc->vt != VT_USERDEFINED ||
        FAILED(info.GetRefTypeInfo(type.lptdesc->hreftype, named.Put()))) {
        return GUID_NULL;
    }
    const TypeAttributes attributes(*named);
    const bool isInterface =
        attributes->typekind == TKIND_INTERFACE || attributes->typekind == TKIND_DISPATCH;
    return isInterface ? attributes->guid : GUID_NULL;
}

DispatchMember DescribeMember(ITypeInfo& info, const Function& function) {
    DispatchMember member{function->memid, function->invkind, {}, false};
    for (SHORT index = 0; index < function->cParams; ++index) {
        const TYPEDESC& type = function->lprgelemdescParam[index].tdesc;
        member.Parameters.push_back({TypeOf(info, type), InterfaceOf(info, type)});
    }
    member.GivesObject =
        member.Parameters.empty() && TypeOf(info, function->elemdescFunc.tdesc) == VT_DISPATCH;
    return member;
}

/// The descriptions that are in use, by GUID.
struct DescriptionCache {
    struct Entry {
        GUID Guid;
        std::weak_ptr<const TypeDescription> Description;
    };

    Win::SlimLock Guard;
    std::vector<Entry> Entries;
};

DescriptionCache& Cache() {
    static DescriptionCache cache;
    return cache;
}

} // namespace

const DispatchMember* TypeDescription::Find(MEMBERID id, int kinds) const noexcept {
    const auto found = std::ranges::find_if(Members, [&](const DispatchMember& member) {
        return member.Id == id && (member.Kind & kinds) != 0;
    });
    return found == Members.end() ? nullptr : &*found;
}

ComPtr<ITypeLib> LoadEmbeddedLibrary() {
    const Text path = ModulePath();
    ComPtr<ITypeLib> library;
    Check(::LoadTypeLibEx(Wide(path), REGKIND_NONE, library.Put()));
    return library;
}

std::shared_ptr<const TypeDescription> DescribeType(ComPtr<ITypeInfo> info) {
    auto description = std::make_shared<TypeDescription>();
    const TypeAttributes attributes(*info);
    for (UINT index = 0; index < attributes->cFuncs; ++index) {
        description->Members.push_back(DescribeMember(*info, Function(*info, index)));
    }
    description->Info = std::move(info);
    return description;
}

std::shared_ptr<const TypeDescription> DescribeEmbeddedType(REFGUID guid) {
    DescriptionCache& cache = Cache();
    const std::lock_guard guard(cache.Guard);
    std::erase_if(cache.Entries, [](const auto& entry) { return entry.Description.expired(); });
    for (const auto& entry : cache.Entries) {
        if (auto description = entry.Description.lock(); description && entry.Guid == guid) {
            return description;
        }
    }
    ComPtr<ITypeInfo> info;
    Check(LoadEmbeddedLibrary()->GetTypeInfoOfGuid(guid, info.Put()));
    auto description = DescribeType(std::move(info));
    cache.Entries.push_back({guid, description});
    return description;
}

} // namespace Quorvane::Com
