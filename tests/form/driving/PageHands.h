// SPDX-License-Identifier: MIT
// Working in the control's property page and rule editor, inside the form program's frame.
#pragma once

#include "tests/form/driving/FormProgram.h"
#include "tests/form/driving/Ids.h"

namespace Quorvane::Driving {

using Path = std::vector<std::wstring>;

/// The property page in an open frame.
class PageHands {
  public:
    PageHands(const FormProgram& program, HWND frame);

    HWND Frame() const { return frame_; }
    HWND Tree(int id) const { return Child(page_, id); }
    HWND Button(int id) const { return Child(page_, id); }

    /// Clicks a node of a tree (Id::TreInput or Id::TreOutput) and waits until it is selected.
    void Select(int tree, const Path& path) const;

    /// Edits the label of a node by F2, typing and Enter, and waits until it shows the new text.
    void Edit(int tree, const Path& path, const std::wstring& text) const;

    /// Edits a node that stands at a place among its siblings, where texts may repeat.
    void EditChild(int tree, const Path& parent, int index, const std::wstring& text) const;

    /// Types a label as above, but leaves the edit open.
    void BeginEdit(int tree, HTREEITEM item, const std::wstring& text) const;

    /// Adds below a node by Insert. A question is answered with Yes.
    void Add(int tree, const Path& path) const;

    /// Deletes a node by Delete. A question is answered with Yes.
    void Delete(int tree, const Path& path) const;

    /// Opens the rule editor.
    HWND OpenRuleEditor() const;

  private:
    void SelectItem(int tree, HTREEITEM item) const;
    void EditItem(int tree, HTREEITEM item, const std::wstring& text) const;
    void PressAndConfirm(int tree, WORD key) const;

    const FormProgram& program_;
    HWND frame_;
    HWND page_;
};

/// The open rule editor.
class RuleEditorHands {
  public:
    RuleEditorHands(const FormProgram& program, HWND editor) : program_(program), editor_(editor) {}

    HWND Window() const { return editor_; }
    HWND Rules() const { return Child(editor_, Id::LvwRule); }

    /// Chooses a term, or "[NONE]", for a variable, by the order of the variables.
    void ChooseInput(int variable, const std::wstring& term) const;
    void ChooseOutput(int variable, const std::wstring& term) const;

    /// Types the weight and adds the rule by Enter; waits for the number of rules.
    void Add(const std::wstring& weight, int rulesThen) const;

    /// Closes the editor by Esc.
    void Close() const;

  private:
    void Choose(int panel, int variable, const std::wstring& term) const;

    const FormProgram& program_;
    HWND editor_;
};

} // namespace Quorvane::Driving
