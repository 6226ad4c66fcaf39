// SPDX-License-Identifier: MIT
// ISpecifyPropertyPages: which pages a property frame shows for a control.
#pragma once

#include <windows.h>

#include <ocidl.h>

#include "com/ComObject.h"
#include "com/ControlCore.h"
#include "com/TaskMemory.h"

namespace Quorvane::Com {

class PropertyPages : public ISpecifyPropertyPages, protected ControlMixin {
  public:
    using Answers = InterfaceList<ISpecifyPropertyPages>;

    STDMETHODIMP GetPages(CAUUID* pages) noexcept override {
        return Guard<ISpecifyPropertyPages>([&] {
            Out(pages) = CAUUID{};
            const auto classes = Core().Traits().PropertyPages;
            pages->pElems = NewTaskArray(classes);
            pages->cElems = static_cast<ULONG>(classes.size());
        });
    }
};

} // namespace Quorvane::Com
