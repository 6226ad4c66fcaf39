// SPDX-License-Identifier: MIT
// A fuzzy system as C99: its tables, and one function that goes through them.
#include "code/GenerateC.h"

#include <algorithm>

#include "code/CText.h"
#include "host/formfile/Utf8.h"
#include "shared/Sha256.h"
#include "system/DefinitionTexts.h"

namespace Quorvane::Code {
namespace {

constexpr std::string_view Details =
    "/* Computes the outputs, as the fuzzy engine does, to the bit. An input that is outside its\n"
    " * range or not a number belongs to no term; an output for which no rule fires gets the "
    "middle\n"
    " * of its range. Returns 0, or 1 where a result would be beyond the range of a double: then "
    "all\n"
    " * outputs are the middles of their ranges. Keeps no state and needs no other function.\n"
    " */\n";

/// Replaces each "@NAME@" in a piece of code.
std::string Filled(std::string_view code,
                   std::initializer_list<std::pair<std::string_view, std::string>> values) {
    std::string text(code);
    for (const auto& [mark, value] : values) {
        const std::string pattern = '@' + std::string(mark) + '@';
        for (auto at = text.find(pattern); at != std::string::npos;
             at = text.find(pattern, at + value.size())) {
            text.replace(at, pattern.size(), value);
        }
    }
    return text;
}

class SourceWriter {
  public:
    SourceWriter(const System::FuzzySystem& system, const CompiledSystem& compiled,
                 std::string_view name)
        : system_(system), compiled_(compiled), name_(name), upper_(UpperCase(name)) {}

    std::string Write() {
        text_ = ArithmeticGuard(upper_);
        text_ += "#include \"" + name_ + ".h\"\n\n";
        if (HasTerms()) {
            WriteTerms();
        }
        WriteOutputs();
        WriteRules();
        WriteFunction();
        return text_;
    }

  private:
    bool HasTerms() const { return !compiled_.Terms.empty(); }

    void WriteTerms() {
        text_ += "/* The terms that rules use: their input with its bounds, and the points of the\n"
                 " * trapezoid.\n"
                 " */\n"
                 "static const struct term {\n"
                 "    unsigned input;\n"
                 "    double lower, upper;\n"
                 "    double p1, p2, p3, p4;\n"
                 "} terms[] = {\n";
        for (const CompiledTerm& term : compiled_.Terms) {
            const CompiledInput& input = compiled_.Inputs[term.Input];
            text_ += "    {" + std::to_string(term.Input) + ", " + NumberConstant(input.Lower) +
                     ", " + NumberConstant(input.Upper);
            for (const double point : term.Points) {
                text_ += ", " + NumberConstant(point);
            }
            text_ += "}, /* " + NameOf(term) + " */\n";
        }
        text_ += "};\n\n";
    }

    void WriteOutputs() {
        text_ += "/* The positions of the outputs' terms; the first stands for none. */\n"
                 "static const double positions[] = {\n    0.0,\n";
        for (const CompiledPosition& position : compiled_.Positions) {
            text_ += "    " + NumberConstant(position.Value) + ", /* " + NameOf(position) + " */\n";
        }
        text_ += "};\n\n";
        if (!AreAllSet()) {
            text_ += "/* Whether the last rule names the output; else it keeps its default. */\n"
                     "static const unsigned char is_set[] = {";
            for (std::size_t i = 0; i < compiled_.Outputs.size(); ++i) {
                text_ += i == 0 ? "" : ", ";
                text_ += compiled_.Outputs[i].IsSet ? '1' : '0';
            }
            text_ += "};\n\n";
        }
        text_ += "/* The outputs where no rule fires. */\n"
                 "static const double defaults[] = {";
        for (std::size_t i = 0; i < compiled_.Outputs.size(); ++i) {
            text_ += (i == 0 ? "" : ", ") + NumberConstant(compiled_.Outputs[i].Default);
        }
        text_ += "};\n\n";
    }

    void WriteRules() {
        const std::size_t conditions = compiled_.Rules.front().When.size();
        text_ += Filled("/* The rules: places in degrees, of which the first is always 1, and in\n"
                        " * positions, for each output.\n"
                        " */\n"
                        "static const struct rule {\n"
                        "    double weight;\n"
                        "    @WHEN_TYPE@ when[@WHEN@];\n"
                        "    @THEN_TYPE@ then[@THEN@];\n"
                        "} rules[] = {\n",
                        {{"WHEN_TYPE", std::string(IndexType(compiled_.Terms.size()))},
                         {"WHEN", std::to_string(conditions)},
                         {"THEN_TYPE", std::string(IndexType(compiled_.Positions.size()))},
                         {"THEN", std::to_string(compiled_.Outputs.size())}});
        for (const CompiledRule& rule : compiled_.Rules) {
            text_ += "    {" + NumberConstant(rule.Weight) + ", {" + List(rule.When) + "}, {" +
                     List(rule.Then) + "}},\n";
        }
        text_ += "};\n\n";
    }

    void WriteFunction() {
        if (HasTerms()) {
            text_ +=
                "static int is_finite(double x)\n"
                "{\n"
                "    return x - x == 0;\n"
                "}\n"
                "\n"
                "/* The degree, 0 to 1, to which x belongs to a term. On a flank that is wider\n"
                " * than the largest double it is infinite.\n"
                " */\n"
                "static double degree_in(const struct term *term, double x)\n"
                "{\n"
                "    double width;\n"
                "    if (x < term->lower || x > term->upper)\n"
                "        return 0;\n"
                "    if (term->p2 <= x && x <= term->p3)\n"
                "        return 1;\n"
                "    if (!(term->p1 < x && x < term->p4))\n"
                "        return 0;\n"
                "    width = x < term->p2 ? term->p2 - term->p1 : term->p4 - term->p3;\n"
                "    if (!is_finite(width))\n"
                "        return width;\n"
                "    return (x < term->p2 ? x - term->p1 : term->p4 - x) / width;\n"
                "}\n"
                "\n";
        }
        text_ += Filled(HasTerms() ? FunctionWithTerms : FunctionWithoutTerms,
                        {{"NAME", name_}, {"DEGREES", std::to_string(compiled_.Terms.size() + 1)}});
        text_ +=
            Filled(FunctionRest, {{"UPPER", upper_},
                                  {"RULES", std::to_string(compiled_.Rules.size())},
                                  {"WHEN", std::to_string(compiled_.Rules.front().When.size())},
                                  {"IS_SET", AreAllSet() ? "" : "is_set[j] && "}});
    }

    bool AreAllSet() const {
        return std::ranges::all_of(compiled_.Outputs, &CompiledOutput::IsSet);
    }

    static constexpr std::string_view FunctionWithTerms =
        "int @NAME@(const double *inputs, double *outputs)\n"
        "{\n"
        "    double degrees[@DEGREES@];\n"
        "    unsigned long i;\n"
        "    int failed = 0;\n"
        "    degrees[0] = 1;\n"
        "    for (i = 1; i < @DEGREES@; ++i) {\n"
        "        degrees[i] = degree_in(&terms[i - 1], inputs[terms[i - 1].input]);\n"
        "        if (!is_finite(degrees[i]))\n"
        "            failed = 1;\n"
        "    }\n";

    static constexpr std::string_view FunctionWithoutTerms =
        "static int is_finite(double x)\n"
        "{\n"
        "    return x - x == 0;\n"
        "}\n"
        "\n"
        "int @NAME@(const double *inputs, double *outputs)\n"
        "{\n"
        "    static const double degrees[1] = {1};\n"
        "    unsigned long i;\n"
        "    int failed = 0;\n"
        "    (void)inputs;\n";

    /// Sums are in the order of the rules, products in that of their conditions.
    static constexpr std::string_view FunctionRest =
        "    {\n"
        "        double numerators[@UPPER@_OUTPUTS] = {0};\n"
        "        double denominators[@UPPER@_OUTPUTS] = {0};\n"
        "        unsigned j;\n"
        "        for (i = 0; i < @RULES@; ++i) {\n"
        "            double strength = rules[i].weight;\n"
        "            for (j = 0; j < @WHEN@; ++j)\n"
        "                strength *= degrees[rules[i].when[j]];\n"
        "            for (j = 0; j < @UPPER@_OUTPUTS; ++j) {\n"
        "                if (rules[i].then[j] != 0) {\n"
        "                    numerators[j] += strength * positions[rules[i].then[j]];\n"
        "                    denominators[j] += strength;\n"
        "                }\n"
        "            }\n"
        "        }\n"
        "        for (j = 0; j < @UPPER@_OUTPUTS; ++j) {\n"
        "            outputs[j] = defaults[j];\n"
        "            if (@IS_SET@denominators[j] != 0)\n"
        "                outputs[j] = numerators[j] / denominators[j];\n"
        "            if (!is_finite(numerators[j]) || !is_finite(denominators[j]) ||\n"
        "                !is_finite(outputs[j]))\n"
        "                failed = 1;\n"
        "        }\n"
        "        for (j = 0; failed && j < @UPPER@_OUTPUTS; ++j)\n"
        "            outputs[j] = defaults[j];\n"
        "    }\n"
        "    return failed;\n"
        "}\n";

    static std::string List(const std::vector<std::uint32_t>& numbers) {
        std::string text;
        for (const std::uint32_t number : numbers) {
            text += (text.empty() ? "" : ", ") + std::to_string(number);
        }
        return text;
    }

    std::string NameOf(const CompiledTerm& term) const {
        const System::InputVariable& input = system_.Inputs[term.Input];
        return InComment(input.Name) + ' ' + InComment(input.Terms[term.Term].Name);
    }

    std::string NameOf(const CompiledPosition& position) const {
        const CompiledOutput& output = compiled_.Outputs[position.Output];
        const auto& variable =
            *std::ranges::find(system_.Outputs, output.Name, &System::OutputVariable::Name);
        return InComment(output.Name) + ' ' + InComment(variable.Terms[position.Term].Name);
    }

    const System::FuzzySystem& system_;
    const CompiledSystem& compiled_;
    std::string name_;
    std::string upper_;
    std::string text_;
};

} // namespace

std::string ChecksumOf(const System::FuzzySystem& system) {
    const System::DefinitionTexts texts = System::PlainTexts(system);
    return Sha256(
        Host::EncodeUtf8(texts.Inputs + u'\n' + texts.Outputs + u'\n' + texts.Rules + u'\n'));
}

GeneratedCode GenerateC(const System::FuzzySystem& system, std::string_view name) {
    RequireFunctionName(name);
    const CompiledSystem compiled = Compile(system);
    const std::string checksum = ChecksumOf(system);
    return {
        MakeHeader(compiled, name, checksum, Details),
        Banner(std::string(name) + ".c", "a fuzzy system, as tables and one function.", checksum) +
            SourceWriter(system, compiled, name).Write()};
}

} // namespace Quorvane::Code
