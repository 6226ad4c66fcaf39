// SPDX-License-Identifier: MIT
// Initialising, loading and saving the control.
#include "com/Fonts.h"
#include "control/FISControl.h"
#include "control/HelpFile.h"
#include "control/persistence/PropertyBag.h"
#include "control/persistence/StreamPropertyBag.h"
#include "engine/PrepareRuleBase.h"
#include "model/BuiltInDefinition.h"
#include "model/ParseDefinition.h"
#include "shared/DefaultArithmetic.h"
#include "shared/Definition.h"
#include "text/GetText.h"
#include "text/TextIds.h"

namespace Quorvane {
namespace {

/// Where a stream keeps the extent, beside the properties. A host that keeps a bag keeps the extent
/// itself.
constexpr TextView ExtentX = u"_ExtentX";
constexpr TextView ExtentY = u"_ExtentY";

LONG ReadLength(const StreamPropertyBag& bag, TextView name, LONG byDefault) {
    const auto* const length = bag.Find(name);
    if (!length) {
        return byDefault;
    }
    if (length->Type() != VT_I4 || length->Get().lVal < 0) {
        throw Com::HresultError(STG_E_DOCFILECORRUPT);
    }
    return length->Get().lVal;
}

/// The extent that a stream keeps. Streams of former versions have none: then it is that of now.
SIZEL ReadExtent(const StreamPropertyBag& bag, const SIZEL& now) {
    return {ReadLength(bag, ExtentX, now.cx), ReadLength(bag, ExtentY, now.cy)};
}

} // namespace

/// Shows the control as a start leaves it, whether or not the start succeeds: what was set before a
/// failure stays, on the screen as elsewhere.
class FISControl::ShowAtEnd {
  public:
    explicit ShowAtEnd(FISControl& control) noexcept : control_(control) {}
    ShowAtEnd(const ShowAtEnd&) = delete;
    ShowAtEnd& operator=(const ShowAtEnd&) = delete;
    ~ShowAtEnd() { control_.ShowStarted(); }

  private:
    FISControl& control_;
};

Com::ComPtr<IFontDisp> FISControl::AmbientFont() const {
    auto font = Site().Font();
    return font ? font : NewDialogFont();
}

void FISControl::InitProperties() {
    Definition::ProcessState& state = Definition::State();
    display_.lblCaption.Caption = Main::GetText(TextIds::InferenceSystem);
    display_.lvwInput.Font.Set(AmbientFont());
    display_.lvwOutput.Font.Set(display_.lvwInput.Font.Get());
    state.LanguageId = static_cast<std::int32_t>(Site().LocaleId());
    SetHelpFile();
    state.InputsText = Main::BuiltInInputs();
    state.OutputsText = Main::BuiltInOutputs();
    state.RulesText = Main::BuiltInRules();
    const DefaultArithmetic arithmetic;
    Main::ParseDefinition();
    FillVariableLists();
}

// A failure ends the load where it stands: what was read before it stays, and the next load works.
void FISControl::ReadProperties(IPropertyBag& bag, IErrorLog* log) {
    const PropertyReader reader(bag, log);
    const auto ambientFont = [this] { return AmbientFont(); };
    ListFace& input = display_.lvwInput;
    ListFace& output = display_.lvwOutput;
    display_.lblCaption.Caption =
        reader.ReadText(L"Caption", Main::GetText(TextIds::InferenceSystem));
    input.Font.Set(reader.ReadFont(L"Font", ambientFont));
    input.BackColor = reader.ReadColor(L"BackColor", DefaultBackColor);
    input.ForeColor = reader.ReadColor(L"ForeColor", DefaultForeColor);
    output.Font.Set(reader.ReadFont(L"Font", ambientFont));
    output.BackColor = reader.ReadColor(L"BackColor", DefaultBackColor);
    output.ForeColor = reader.ReadColor(L"ForeColor", DefaultForeColor);
    // Only the input list: a form saved as disabled shows a readable caption and outputs.
    input.Enabled = reader.ReadFlag(L"Enabled", true);

    const bool runMode = Site().UserMode();
    Definition::ProcessState& state = Definition::State();
    state.LanguageId =
        runMode ? ::GetUserDefaultLangID() : static_cast<std::int32_t>(Site().LocaleId());
    SetHelpFile();
    state.InputsText = reader.ReadText(L"Inputs", Text(Main::BuiltInInputs()));
    state.OutputsText = reader.ReadText(L"Outputs", Text(Main::BuiltInOutputs()));
    state.RulesText = reader.ReadText(L"Rules", Text(Main::BuiltInRules()));
    const DefaultArithmetic arithmetic;
    Main::ParseDefinition();
    FillVariableLists();
    if (runMode) {
        RunTime::PrepareRuleBase();
    }
}

void FISControl::WriteProperties(IPropertyBag& bag, bool all) const {
    const PropertyWriter writer(bag, all);
    const Definition::ProcessState& state = Definition::State();
    const ListFace& input = display_.lvwInput;
    writer.WriteText(L"Caption", display_.lblCaption.Caption,
                     Main::GetText(TextIds::InferenceSystem));
    writer.WriteFont(L"Font", input.Font.Get().Get(), AmbientFont().Get());
    writer.WriteColor(L"BackColor", input.BackColor, DefaultBackColor);
    writer.WriteColor(L"ForeColor", input.ForeColor, DefaultForeColor);
    writer.WriteFlag(L"Enabled", input.Enabled, true);
    writer.WriteText(L"Inputs", state.InputsText, Main::BuiltInInputs());
    writer.WriteText(L"Outputs", state.OutputsText, Main::BuiltInOutputs());
    writer.WriteText(L"Rules", state.RulesText, Main::BuiltInRules());
}

STDMETHODIMP FISControl::GetClassID(CLSID* clsid) noexcept {
    return Com::Guard<IPersist>([&] { Com::Out(clsid) = __uuidof(::FISControl); });
}

STDMETHODIMP FISControl::IsDirty() noexcept {
    return isDirty_ ? S_OK : S_FALSE;
}

STDMETHODIMP FISControl::InitNew() noexcept {
    const Com::KeepAlive alive(this);
    return Com::Guard<IPersistStreamInit>([&] {
        const ShowAtEnd shown(*this);
        isStarted_ = true;
        InitProperties();
        // Nothing holds the control yet: a host that saves what has changed has to save it.
        isDirty_ = true;
    });
}

void FISControl::StartIfNeeded() {
    if (!isStarted_) {
        Com::Check(InitNew());
    }
}

STDMETHODIMP FISControl::Load(IPropertyBag* bag, IErrorLog* log) noexcept {
    const Com::KeepAlive alive(this);
    return Com::Guard<IPersistPropertyBag>([&] {
        const ShowAtEnd shown(*this);
        isStarted_ = true;
        ReadProperties(Com::In(bag), log);
        isDirty_ = false;
    });
}

STDMETHODIMP FISControl::Save(IPropertyBag* bag, BOOL clearDirty, BOOL saveAll) noexcept {
    const Com::KeepAlive alive(this);
    return Com::Guard<IPersistPropertyBag>([&] {
        WriteProperties(Com::In(bag), saveAll);
        isDirty_ = isDirty_ && !clearDirty;
    });
}

STDMETHODIMP FISControl::Load(IStream* stream) noexcept {
    const Com::KeepAlive alive(this);
    return Com::Guard<IPersistStreamInit>([&] {
        const auto bag = StreamPropertyBag::ReadFrom(Com::In(stream));
        const SIZEL extent = ReadExtent(*bag, Extent());
        const ShowAtEnd shown(*this);
        isStarted_ = true;
        Core().SetExtent(extent);
        ReadProperties(*bag, nullptr);
        isDirty_ = false;
    });
}

STDMETHODIMP FISControl::Save(IStream* stream, BOOL clearDirty) noexcept {
    const Com::KeepAlive alive(this);
    return Com::Guard<IPersistStreamInit>([&] {
        const auto bag = Com::MakeObject<StreamPropertyBag>();
        WriteProperties(*bag, false);
        bag->Set(ExtentX, Com::Variant(Extent().cx));
        bag->Set(ExtentY, Com::Variant(Extent().cy));
        bag->WriteTo(Com::In(stream));
        isDirty_ = isDirty_ && !clearDirty;
    });
}

STDMETHODIMP FISControl::GetSizeMax(ULARGE_INTEGER* size) noexcept {
    return Com::Guard<IPersistStreamInit>([&] {
        Com::ComPtr<IStream> stream;
        Com::Check(::CreateStreamOnHGlobal(nullptr, TRUE, stream.Put()));
        Com::Check(Save(stream.Get(), FALSE));
        STATSTG status{};
        Com::Check(stream->Stat(&status, STATFLAG_NONAME));
        Com::Out(size) = status.cbSize;
    });
}

} // namespace Quorvane
