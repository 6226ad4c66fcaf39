// SPDX-License-Identifier: MIT
// PropertyGrid: the visible properties of a control, to be looked at and changed in design mode.
#pragma once

#include "host/container/ComPtr.h"
#include "host/container/Variant.h"
#include "host/form/parts/Window.h"

#include <string>
#include <vector>

namespace Quorvane::Host {

/// Lists the properties that the control's type information does not hide, and that can be read and
/// set. Enter, F2 or a double click edits one: texts and numbers in place, Booleans by turning them
/// over, colours and fonts in the platform's dialogs.
class PropertyGrid final : public Window {
  public:
    explicit PropertyGrid(HWND parent);

    /// Shows the properties of an object; null shows none.
    void SetObject(const std::wstring& name, IDispatch* object);

    /// Ends an edit in place, as Enter does. Throws HResultError for a value that is refused.
    void EndEdit() { FinishText(true); }

    /// Reads all values again.
    void RefreshValues();

  protected:
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    enum class Editor { Text, Flag, Color, Font };

    struct Property {
        std::wstring Name;
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
    Variant Read(const Property& property) const;
    std::wstring Describe(const Property& property) const;

    static LRESULT CALLBACK ListProcedure(HWND list, UINT message, WPARAM wParam, LPARAM lParam,
                                          UINT_PTR id, DWORD_PTR);
    static LRESULT CALLBACK FieldProcedure(HWND field, UINT message, WPARAM wParam, LPARAM lParam,
                                           UINT_PTR id, DWORD_PTR grid);

    HWND title_ = nullptr;
    HWND list_ = nullptr;
    HWND field_ = nullptr;
    int editedRow_ = -1;
    ComPtr<IDispatch> object_;
    std::vector<Property> properties_;
};

} // namespace Quorvane::Host
