// SPDX-License-Identifier: MIT
// Window classes of a module, registered while there are windows of them.
#pragma once

#include <windows.h>

#include <memory>

namespace Quorvane::Win {

/// A registered window class. Whoever has windows of it holds a reference; the last one that goes
/// unregisters the class, so that no class outlives the code of a module that is unloaded.
class WindowClass {
  public:
    /// `module` is the module whose code `procedure` is: two copies of a module in one process have
    /// a class each. `name` lives as long as the program. Throws std::system_error.
    WindowClass(HINSTANCE module, const wchar_t* name, WNDPROC procedure);
    ~WindowClass();
    WindowClass(const WindowClass&) = delete;
    WindowClass& operator=(const WindowClass&) = delete;

    /// The one class of windows of the type `W` (see Window), which is registered if it is not.
    template <class W>
    static std::shared_ptr<const WindowClass> Of(HINSTANCE module, WNDPROC procedure) {
        static std::weak_ptr<const WindowClass> current;
        auto result = current.lock();
        if (!result) {
            result = std::make_shared<const WindowClass>(module, W::ClassName, procedure);
            current = result;
        }
        return result;
    }

    HINSTANCE Module() const noexcept { return module_; }
    const wchar_t* Name() const noexcept { return name_; }

  private:
    HINSTANCE module_;
    const wchar_t* name_;
};

} // namespace Quorvane::Win
