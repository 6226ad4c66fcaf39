// SPDX-License-Identifier: MIT
// The property page in its frame, worked with mouse and keyboard.
#include <gtest/gtest.h>

#include <olectl.h>

#include "com/ComObject.h"
#include "com/Scoped.h"
#include "tests/editorwindows/PageTest.h"
#include "win/Handle.h"

namespace Quorvane {
namespace {

using Texts = std::vector<Text>;

/// How many pixels of an area of a window have a colour.
LONG ColoredPixels(HWND window, const RECT& area, COLORREF color) {
    const Win::WindowDc screen(nullptr);
    const Win::MemoryDc memory(::CreateCompatibleDC(screen.Get()));
    const Win::Bitmap bitmap(::CreateCompatibleBitmap(screen.Get(), area.right, area.bottom));
    const Win::Selection selected(memory.Get(), bitmap.Get());
    ::SendMessageW(window, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(memory.Get()), PRF_CLIENT);
    LONG count = 0;
    for (LONG y = area.top; y < area.bottom; ++y) {
        for (LONG x = area.left; x < area.right; ++x) {
            count += ::GetPixel(memory.Get(), x, y) == color ? 1 : 0;
        }
    }
    return count;
}

TEST_F(PageTest, FillsBothTreesAndWaitsForAClick) {
    const Placed control = Design(TwoOutputs);
    Open({control.Control.Get()});
    EXPECT_EQ(ItemText(Tree(true), Item(Tree(true), {})), u"Input");
    EXPECT_EQ(ChildTexts(Tree(true), Item(Tree(true), {})), (Texts{u"X"}));
    EXPECT_EQ(ChildTexts(Tree(true), Item(Tree(true), {u"X"})),
              (Texts{u"128", u"-128", u"Low", u"High"}));
    EXPECT_EQ(ChildTexts(Tree(true), Item(Tree(true), {u"X", u"Low"})),
              (Texts{u"-128", u"-128", u"-128", u"128"}));
    EXPECT_EQ(ItemText(Tree(false), Item(Tree(false), {})), u"Output");
    EXPECT_EQ(ChildTexts(Tree(false), Item(Tree(false), {})), (Texts{u"Y", u"Z"}));
    EXPECT_EQ(ChildTexts(Tree(false), Item(Tree(false), {u"Y", u"Top"})), (Texts{u"256"}));
    EXPECT_EQ(ButtonCaptions(),
              (Texts{u"-Add Variable", u"-Modify", u"-Delete", u"Rule Editor..."}));
    EXPECT_EQ(page_->IsPageDirty(), S_FALSE);
    EXPECT_EQ(site_->DirtyReports, 0);
}

TEST_F(PageTest, NamesAndEnablesTheButtonsForTheClickedNode) {
    const Placed control = Design(TwoOutputs);
    Open({control.Control.Get()});
    const struct {
        bool Input;
        std::initializer_list<TextView> Path;
        Texts Captions;
    } cases[] = {
        {true, {}, {u"Add Variable", u"-Modify", u"-Delete"}},
        {true, {u"X"}, {u"Add Term", u"Modify Variable", u"-Delete Variable"}},
        {false, {u"Z"}, {u"Add Term", u"Modify Variable", u"Delete Variable"}},
        {true, {u"X", u"128"}, {u"-Add", u"Modify Value", u"-Delete"}},
        {true, {u"X", u"High"}, {u"-Add", u"Modify Term", u"Delete Term"}},
        {false, {u"Y", u"Zero", u"0"}, {u"-Add", u"Modify Value", u"-Delete"}},
    };
    for (const auto& test : cases) {
        HWND const tree = Tree(test.Input);
        Click(tree, Item(tree, test.Path));
        Texts captions = ButtonCaptions();
        captions.pop_back();
        EXPECT_EQ(captions, test.Captions);
    }
}

TEST_F(PageTest, RenamesAVariableByF2AndEnter) {
    const Placed control = Design(Adder);
    Open({control.Control.Get()});
    Click(Tree(true), Item(Tree(true), {u"X"}));
    EditLabel(Tree(true), u"Level");
    EXPECT_EQ(ChildTexts(Tree(true), Item(Tree(true), {})), (Texts{u"Level"}));
    EXPECT_EQ(page_->IsPageDirty(), S_OK);
    EXPECT_GT(site_->DirtyReports, 0);
    ASSERT_EQ(page_->Apply(), S_OK);
    EXPECT_EQ(page_->IsPageDirty(), S_FALSE);
    EXPECT_EQ(GetText(*control, &_FISControl::get_Rules),
              Stored(u"Level>Low/Y<Zero:1|Level>High/Y<Top:1"));
}

TEST_F(PageTest, EscEndsAnEditWithoutAChange) {
    const Placed control = Design(Adder);
    Open({control.Control.Get()});
    Click(Tree(true), Item(Tree(true), {u"X"}));
    Press(Tree(true), VK_F2);
    HWND const field = TreeView_GetEditControl(Tree(true));
    ASSERT_NE(field, nullptr);
    ::SetWindowTextW(field, L"Level");
    Press(field, VK_ESCAPE);
    EXPECT_EQ(ChildTexts(Tree(true), Item(Tree(true), {})), (Texts{u"X"}));
    EXPECT_EQ(page_->IsPageDirty(), S_FALSE);
}

TEST_F(PageTest, ShowsARefusalOnceAndRestoresTheLabel) {
    const Placed control = Design(Adder);
    Open({control.Control.Get()});
    Click(Tree(true), Item(Tree(true), {u"X", u"Low", u"128"}));
    MessageBoxes boxes;
    EditLabel(Tree(true), u"abc");
    ASSERT_EQ(boxes.Shown.size(), 1U);
    EXPECT_EQ(boxes.Shown[0].Message, u"Should be a number!");
    EXPECT_EQ(boxes.Shown[0].Title, u"Quorvane Inference System");
    EXPECT_EQ(boxes.Shown[0].Owner, frame_);
    EXPECT_EQ(ChildTexts(Tree(true), Item(Tree(true), {u"X", u"Low"})),
              (Texts{u"-128", u"-128", u"-128", u"128"}));
    EXPECT_EQ(page_->IsPageDirty(), S_FALSE);
}

TEST_F(PageTest, AppliesAnEditThatIsStillOpen) {
    const Placed control = Design(Adder);
    Open({control.Control.Get()});
    Click(Tree(false), Item(Tree(false), {u"Y", u"Top", u"256"}));
    Press(Tree(false), VK_F2);
    HWND const field = TreeView_GetEditControl(Tree(false));
    ASSERT_NE(field, nullptr);
    ::SetWindowTextW(field, L"300");
    ASSERT_EQ(page_->Apply(), S_OK);
    EXPECT_EQ(GetText(*control, &_FISControl::get_Outputs), Stored(u"Y/1000/0/Zero,0;Top,300"));
}

TEST_F(PageTest, AppliesToTheFirstOfTwoControlsOnly) {
    const Placed first = Design(Adder);
    const Placed second = Design(Adder);
    const auto firstSink = Com::MakeObject<NotifySink>();
    const auto secondSink = Com::MakeObject<NotifySink>();
    Connection one(first.Control.Get(), __uuidof(IPropertyNotifySink), firstSink.Get());
    Connection two(second.Control.Get(), __uuidof(IPropertyNotifySink), secondSink.Get());
    Open({first.Control.Get(), second.Control.Get()});
    Click(Tree(true), Item(Tree(true), {u"X"}));
    EditLabel(Tree(true), u"Level");
    ASSERT_EQ(page_->Apply(), S_OK);
    EXPECT_EQ(firstSink->Changed, (std::vector<DISPID>{0x68030007, 0x68030006, 0x68030005}));
    EXPECT_TRUE(secondSink->Changed.empty());
}

TEST_F(PageTest, AddsAVariableByInsertAfterAQuestionAndRefusesAnEmptyRuleBase) {
    const Placed control = Design(Adder);
    Open({control.Control.Get()});
    Click(Tree(true), Item(Tree(true), {}));
    MessageBoxes boxes(AnswerYes);
    Press(Tree(true), VK_INSERT);
    ASSERT_EQ(boxes.Shown.size(), 1U);
    EXPECT_EQ(boxes.Shown[0].Message, u"The rule base will be emptied!\r\nDo you want to preceed?");
    EXPECT_EQ(boxes.Shown[0].Buttons, (Texts{u"Yes", u"No"}));
    EXPECT_EQ(ChildTexts(Tree(true), Item(Tree(true), {})), (Texts{u"X", u"Input_1"}));
    EXPECT_EQ(ChildTexts(Tree(true), Item(Tree(true), {u"Input_1", u"MF_1"})),
              (Texts{u"-0.6", u"-0.2", u"0.2", u"0.6"}));
    EXPECT_TRUE(FAILED(page_->Apply()));
    ASSERT_EQ(boxes.Shown.size(), 2U);
    EXPECT_EQ(boxes.Shown[1].Message, u"The rule base cannot be empty!");
    EXPECT_EQ(page_->IsPageDirty(), S_OK);
    EXPECT_EQ(GetText(*control, &_FISControl::get_Rules), Stored(Adder.Rules));
}

TEST_F(PageTest, DeletesATermByItsKeyWithTheRulesThatUseIt) {
    const Placed control = Design(Adder);
    Open({control.Control.Get()});
    Click(Tree(true), Item(Tree(true), {u"X", u"High"}));
    Press(Tree(true), VK_DELETE);
    EXPECT_EQ(ChildTexts(Tree(true), Item(Tree(true), {u"X"})), (Texts{u"128", u"-128", u"Low"}));
    ASSERT_EQ(page_->Apply(), S_OK);
    EXPECT_EQ(GetText(*control, &_FISControl::get_Rules), Stored(u"X>Low/Y<Zero:1"));
}

TEST_F(PageTest, ShowsARunningControlReadOnly) {
    const Placed control = Run(Adder);
    Open({control.Control.Get()});
    Click(Tree(true), Item(Tree(true), {u"X"}));
    for (const Text& caption : ButtonCaptions()) {
        EXPECT_TRUE(caption.starts_with(u'-'));
    }
    Press(Tree(true), VK_F2);
    EXPECT_EQ(TreeView_GetEditControl(Tree(true)), nullptr);
    MessageBoxes boxes;
    EXPECT_EQ(page_->Apply(), static_cast<HRESULT>(0x800A017E));
    ASSERT_EQ(boxes.Shown.size(), 1U);
    EXPECT_EQ(boxes.Shown[0].Message, u"Set not supported at runtime (382)");
    EXPECT_EQ(boxes.Shown[0].Title, u"Quorvane Inference System");
}

TEST_F(PageTest, SaysSoWhenTheControlRefusesTheEdits) {
    const Placed control = Design(Adder);
    Open({control.Control.Get()});
    Click(Tree(true), Item(Tree(true), {u"X"}));
    EditLabel(Tree(true), u"Level");
    // The host begins to run its form under the open page.
    control.Site->Ambients[DISPID_AMBIENT_USERMODE] = Com::Variant(true);
    As<IOleControl>(control)->OnAmbientPropertyChange(DISPID_AMBIENT_USERMODE);
    MessageBoxes boxes;
    EXPECT_EQ(page_->Apply(), static_cast<HRESULT>(0x800A017E));
    ASSERT_EQ(boxes.Shown.size(), 1U);
    EXPECT_EQ(boxes.Shown[0].Message, u"Set not supported at runtime (382)");
    EXPECT_EQ(page_->IsPageDirty(), S_OK) << "the edits stay pending";
}

/// A control of somebody else's making, that refuses a property as it likes.
class RefusingControl final : public Com::ComObject<IDispatch> {
  public:
    /// It stands on a form where the other control stands.
    RefusingControl(const Placed& place, const EXCEPINFO& raised)
        : place_(place), raised_(raised) {}

    STDMETHODIMP QueryInterface(REFIID iid, void** result) noexcept override {
        return iid == __uuidof(IOleObject) ? place_->QueryInterface(iid, result)
                                           : ComObject::QueryInterface(iid, result);
    }
    STDMETHODIMP GetTypeInfoCount(UINT*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID* id) noexcept override {
        *id = 1;
        return S_OK;
    }
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO* exception,
                        UINT*) noexcept override {
        *exception = raised_;
        return DISP_E_EXCEPTION;
    }

  private:
    Placed place_;
    EXCEPINFO raised_;
};

HRESULT CALLBACK FillIn(EXCEPINFO* exception) {
    exception->scode = CTL_E_PERMISSIONDENIED;
    exception->bstrDescription = ::SysAllocString(L"The form is locked.");
    return S_OK;
}

TEST_F(PageTest, TakesNoRefusalForASuccess) {
    EXCEPINFO narrow{};
    narrow.wCode = 382;
    EXCEPINFO empty{};
    EXCEPINFO deferred{};
    deferred.pfnDeferredFillIn = FillIn;
    const struct {
        EXCEPINFO Raised;
        HRESULT Result;
        Text Message;
    } cases[] = {
        {narrow, static_cast<HRESULT>(0x800A017E), u"Set not supported at runtime (382)"},
        {empty, DISP_E_EXCEPTION, {}},
        {deferred, CTL_E_PERMISSIONDENIED, u"The form is locked."},
    };
    for (const auto& test : cases) {
        const Placed control = Design(Adder);
        const auto other = Com::MakeObject<RefusingControl>(control, test.Raised);
        Open({other.Get()});
        Click(Tree(true), Item(Tree(true), {u"X"}));
        EditLabel(Tree(true), u"Level");
        MessageBoxes boxes;
        EXPECT_EQ(page_->Apply(), test.Result);
        ASSERT_EQ(boxes.Shown.size(), 1U);
        EXPECT_FALSE(boxes.Shown[0].Message.empty());
        if (!test.Message.empty()) {
            EXPECT_EQ(boxes.Shown[0].Message, test.Message);
        }
        EXPECT_EQ(page_->IsPageDirty(), S_OK);
        Close();
    }
}

TEST_F(PageTest, SaysSoWhenATermDoesNotFitBetweenItsBounds) {
    const Placed control = Design({u"A/1E+308/-1E+308/T,0,0,1,1", u"C/1/0/P,0", u"A>T/C<P:1"});
    Open({control.Control.Get()});
    Click(Tree(true), Item(Tree(true), {u"A"}));
    MessageBoxes boxes;
    Push(Button(u"Add Term"));
    ASSERT_EQ(boxes.Shown.size(), 1U);
    EXPECT_EQ(boxes.Shown[0].Message, u"Overflow (6)");
    EXPECT_EQ(boxes.Shown[0].Owner, frame_);
    EXPECT_EQ(ChildTexts(Tree(true), Item(Tree(true), {u"A"})).size(), 3U);
    EXPECT_EQ(page_->IsPageDirty(), S_FALSE);
}

TEST_F(PageTest, ShowsNoOldButtonsForATextThatDoesNotParse) {
    const Placed control = Design(Adder);
    Open({control.Control.Get()});
    Click(Tree(true), Item(Tree(true), {u"X"}));
    ASSERT_EQ(ButtonCaptions()[0], u"Add Term");
    ASSERT_EQ(SetText(*control, &_FISControl::put_Inputs, Stored(u"X/high/low/MF_1,a")), S_OK);
    IUnknown* object = control.Control.Get();
    EXPECT_TRUE(FAILED(page_->SetObjects(1, &object)));
    for (const Text& caption : ButtonCaptions()) {
        EXPECT_TRUE(caption.starts_with(u'-')) << Narrow(caption);
    }
}

TEST_F(PageTest, SpeaksChinese) {
    const Placed control = Place(false);
    control.Site->Ambients[DISPID_AMBIENT_LOCALEID] = Com::Variant(LONG{2052});
    ASSERT_EQ(LoadSystem(control, Adder), S_OK);
    Open({control.Control.Get()});
    EXPECT_EQ(ItemText(Tree(true), Item(Tree(true), {})), u"输入");
    Click(Tree(true), Item(Tree(true), {u"X"}));
    EXPECT_EQ(ButtonCaptions(), (Texts{u"添加项", u"修改变量", u"-删除变量", u"规则编辑器..."}));
}

TEST_F(PageTest, DrawsTheGraphOfTheClickedVariable) {
    const Placed control = Design(Adder);
    Open({control.Control.Get()});
    Click(Tree(false), Item(Tree(false), {u"Y"}));
    HWND const picture =
        ::FindWindowExW(::GetWindow(frame_, GW_CHILD), nullptr, L"QuorvaneGraph", nullptr);
    ASSERT_NE(picture, nullptr);
    RECT area{};
    ::GetClientRect(picture, &area);
    HDC const screen = ::GetDC(nullptr);
    HDC const memory = ::CreateCompatibleDC(screen);
    HBITMAP const bitmap = ::CreateCompatibleBitmap(screen, area.right, area.bottom);
    HGDIOBJ const former = ::SelectObject(memory, bitmap);
    ::SendMessageW(picture, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(memory), PRF_CLIENT);
    // Top, at 256 of 0..1000, is the second term: a red line from degree 0 to 1. The picture spans
    // the degrees 1.35 down to -0.42.
    const int x = static_cast<int>(0.256 * area.right);
    const int y = static_cast<int>((1.35 - 0.6) / 1.77 * area.bottom);
    bool isRed = false;
    for (int column = x - 2; column <= x + 2; ++column) {
        isRed = isRed || ::GetPixel(memory, column, y) == RGB(255, 0, 0);
    }
    EXPECT_TRUE(isRed);
    EXPECT_EQ(::GetPixel(memory, area.right / 3, y), RGB(255, 255, 255));
    ::SelectObject(memory, former);
    ::DeleteObject(bitmap);
    ::DeleteDC(memory);
    ::ReleaseDC(nullptr, screen);
}

TEST_F(PageTest, LivesThroughOddOrdersOfItsFrame) {
    const Placed control = Design(Adder);
    Open({control.Control.Get()});
    const RECT place{0, 0, 300, 300};
    EXPECT_EQ(page_->Deactivate(), S_OK);
    EXPECT_EQ(page_->Deactivate(), S_OK);
    EXPECT_EQ(page_->Move(&place), S_OK);
    EXPECT_EQ(page_->Activate(frame_, &place, FALSE), S_OK);
    EXPECT_EQ(page_->Activate(frame_, &place, TRUE), S_OK);
    EXPECT_EQ(page_->Show(SW_SHOW), S_OK);
    EXPECT_EQ(ChildTexts(Tree(true), Item(Tree(true), {})), (Texts{u"X"}));
    IUnknown* object = control.Control.Get();
    EXPECT_EQ(page_->SetObjects(1, &object), S_OK);
    EXPECT_EQ(ChildTexts(Tree(true), Item(Tree(true), {})), (Texts{u"X"}));
    // A frame that forgets to say goodbye: the page lets go of everything by itself.
    page_.Reset();
}

TEST_F(PageTest, APageThatIsActivatedAnewShowsTheNodesThatItsButtonsMean) {
    const Placed control = Design(TwoOutputs);
    Open({control.Control.Get()});
    Click(Tree(false), Item(Tree(false), {u"Z"}));
    Click(Tree(true), Item(Tree(true), {u"X", u"High"}));
    const Texts captions = ButtonCaptions();
    const RECT place{0, 0, 400, 370};
    ASSERT_EQ(page_->Deactivate(), S_OK);
    ASSERT_EQ(page_->Activate(frame_, &place, FALSE), S_OK);
    ASSERT_EQ(page_->Show(SW_SHOW), S_OK);
    Pump();
    EXPECT_EQ(TreeView_GetSelection(Tree(true)), Item(Tree(true), {u"X", u"High"}));
    EXPECT_EQ(TreeView_GetSelection(Tree(false)), Item(Tree(false), {u"Z"}));
    EXPECT_EQ(ButtonCaptions(), captions);
    Push(Button(u"Delete Term"));
    EXPECT_EQ(ChildTexts(Tree(true), Item(Tree(true), {u"X"})), (Texts{u"128", u"-128", u"Low"}));
}

TEST_F(PageTest, AScreenOfAnotherResolutionLeavesAnOpenEditAsItIs) {
    const Placed control = Design(TwoOutputs);
    Open({control.Control.Get()});
    Click(Tree(true), Item(Tree(true), {u"X"}));
    const auto fontOf = [](HWND window) { return ::SendMessageW(window, WM_GETFONT, 0, 0); };
    const LRESULT formerFont = fontOf(Tree(true));
    HIMAGELIST const formerImages = TreeView_GetImageList(Tree(true), TVSIL_NORMAL);
    Press(Tree(true), VK_F2);
    ::SetWindowTextW(TreeView_GetEditControl(Tree(true)), L"Level");
    constexpr UINT DpiChangedAfterParent = 0x02E3;
    ::SendMessageW(::GetParent(Tree(true)), DpiChangedAfterParent, 0, 0);
    Pump();
    EXPECT_NE(fontOf(Tree(true)), formerFont);
    EXPECT_EQ(fontOf(Button(u"Rule Editor...")), fontOf(Tree(true)));
    EXPECT_NE(TreeView_GetImageList(Tree(true), TVSIL_NORMAL), formerImages);
    EXPECT_EQ(TreeView_GetImageList(Tree(false), TVSIL_NORMAL),
              TreeView_GetImageList(Tree(true), TVSIL_NORMAL));
    HWND const field = TreeView_GetEditControl(Tree(true));
    ASSERT_NE(field, nullptr);
    EXPECT_EQ(WindowText(field), u"Level");
    Press(field, VK_RETURN);
    EXPECT_EQ(ChildTexts(Tree(true), Item(Tree(true), {})), (Texts{u"Level"}));
}

TEST_F(PageTest, SaysInChineseWhatTheControlRefuses) {
    const Placed control = Place(true);
    ASSERT_EQ(LoadSystem(control, Adder), S_OK);
    control.Site->Ambients[DISPID_AMBIENT_LOCALEID] = Com::Variant(LONG{2052});
    As<IOleControl>(control)->OnAmbientPropertyChange(DISPID_AMBIENT_LOCALEID);
    Open({control.Control.Get()});
    MessageBoxes boxes;
    EXPECT_EQ(page_->Apply(), static_cast<HRESULT>(0x800A017E));
    ASSERT_EQ(boxes.Shown.size(), 1U);
    EXPECT_EQ(boxes.Shown[0].Message, u"运行时不能设置 (382)");
}

TEST_F(PageTest, RootsAreBoldTealAndExpanded) {
    const Placed control = Design(TwoOutputs);
    Open({control.Control.Get()});
    for (const bool input : {true, false}) {
        HWND const tree = Tree(input);
        HTREEITEM const root = Item(tree, {});
        const UINT state = TreeView_GetItemState(tree, root, TVIS_BOLD | TVIS_EXPANDED);
        EXPECT_EQ(state & (TVIS_BOLD | TVIS_EXPANDED), UINT{TVIS_BOLD | TVIS_EXPANDED});
        EXPECT_EQ(TreeView_GetSelection(tree), root);
        // The colour is seen while the focus is elsewhere, and once another node is selected.
        RECT area{};
        ASSERT_TRUE(TreeView_GetItemRect(tree, root, &area, TRUE));
        ::SetFocus(Tree(!input));
        EXPECT_GT(ColoredPixels(tree, area, RGB(0, 0x80, 0x80)), 10);
        ::SetFocus(tree);
        EXPECT_EQ(ColoredPixels(tree, area, RGB(0, 0x80, 0x80)), 0);
        Click(tree, TreeView_GetChild(tree, root));
        EXPECT_GT(ColoredPixels(tree, area, RGB(0, 0x80, 0x80)), 10);
    }
}

TEST_F(PageTest, SingletonsOnTheBoundsAreAsWideAsOthers) {
    const Placed control = Design({u"X/1/0/T,0,0,1,1", u"Y/1000/0/A,0;B,500;C,1000", u"X>T/Y<A:1"});
    Open({control.Control.Get()});
    HWND const picture =
        ::FindWindowExW(::GetWindow(frame_, GW_CHILD), nullptr, L"QuorvaneGraph", nullptr);
    ASSERT_NE(picture, nullptr);
    Click(Tree(false), Item(Tree(false), {u"Y"}));
    RECT area{};
    ::GetClientRect(picture, &area);
    // A row between the grid's lines.
    area.top = static_cast<LONG>((1.35 - 0.6) / 1.77 * area.bottom);
    area.bottom = area.top + 1;
    const LONG inside = ColoredPixels(picture, area, RGB(255, 0, 0));
    EXPECT_GE(inside, 2);
    EXPECT_EQ(ColoredPixels(picture, area, RGB(0, 0, 255)), inside);
    EXPECT_EQ(ColoredPixels(picture, area, RGB(255, 255, 0)), inside);
}

TEST_F(PageTest, ThePictureOfARootIsEmpty) {
    const Placed control = Design(TwoOutputs);
    Open({control.Control.Get()});
    HWND const picture =
        ::FindWindowExW(::GetWindow(frame_, GW_CHILD), nullptr, L"QuorvaneGraph", nullptr);
    ASSERT_NE(picture, nullptr);
    RECT area{};
    ::GetClientRect(picture, &area);
    Click(Tree(true), Item(Tree(true), {u"X"}));
    EXPECT_LT(ColoredPixels(picture, area, RGB(255, 255, 255)), area.right * area.bottom);
    Click(Tree(true), Item(Tree(true), {}));
    EXPECT_EQ(ColoredPixels(picture, area, RGB(255, 255, 255)), area.right * area.bottom);
}

} // namespace
} // namespace Quorvane
