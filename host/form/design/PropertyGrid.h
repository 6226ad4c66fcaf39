// SPDX-License-Identifier: MIT
// PropertyGrid: the visible properties of a control, to be looked at and changed in design mode.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "com/ComPtr.h"
#include "com/Scoped.h"
#include "host/form/parts/ProgramWindow.h"
#include "shared/Text.h"
#include "win/Subclass.h"

namespace Quorvane::Host {

/// Lists the properties that the control's type information does not hide, and that can be read and
/// set. Enter, F2 or a double click edits one: texts and numbers in place, Booleans by turning them
/// over, colours and fonts in the platform's dialogs.
class PropertyGrid final : public ProgramWindow {
  public:
    static constexpr const wchar_t* ClassName = L"QuorvanePropertyGrid";

    explicit PropertyGrid(HWND parent);
    ~PropertyGrid() override { Destroy(); }

    /// Shows the properties of an object; null shows none.
    void SetObject(const Text& name, IDispatch* object);

    /// Ends an edit in place, as Enter does. Throws Com::HresultError for a value that is refused.
    void EndEdit() { FinishText(true); }

    /// Reads all values again.
    void RefreshValues();

  protected:
    LRESULT OnMessage(UINT message, WPARAM first, LPARAM second) override;

  private:
    enum class Editor { Text, Flag, Color, Font };

    struct Property {
        Text Name;
        Editor EditedAs;
    };

    void ListProperties();
    void AddProperty(ITypeInfo& type, const FUNCDESC& getter);
    LRESULT OnNotify(const NMHDR& header);
    void EditSelected();
    void EditText(int row);
    void FinishText(bool accept);
    void EditColor(const Property& property);
    void EditFont(const Property& property);
    Com::Variant Read(const Property& property) const;
    Text Describe(const Property& property) const;

    static std::optional<LRESULT> OnListMessage(UINT message, WPARAM first);
    std::optional<LRESULT> OnFieldMessage(UINT message, WPARAM first);

    Win::ChildWindow title_;
    Win::ChildWindow list_;
    Win::ChildWindow field_;
    std::unique_ptr<Win::Subclass> listMessages_;
    std::unique_ptr<Win::Subclass> fieldMessages_;
    int editedRow_ = -1;
    Com::ComPtr<IDispatch> object_;
    std::vector<Property> properties_;
};

} // namespace Quorvane::Host
