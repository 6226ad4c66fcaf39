// SPDX-License-Identifier: MIT
// The header of generated code, and what its sources begin with.
#include "code/CText.h"

namespace Quorvane::Code {
namespace {

std::string Bounds(double lower, double upper) {
    return NumberConstant(lower) + " to " + NumberConstant(upper);
}

/// An enumeration of places: one for each variable, and their number.
template <class Variable>
std::string Places(const std::vector<Variable>& variables, const std::string& name,
                   std::string_view mark, std::string_view count) {
    std::vector<Text> names;
    names.reserve(variables.size());
    for (const Variable& variable : variables) {
        names.push_back(variable.Name);
    }
    const std::vector<std::string> identifiers = UniqueIdentifiers(names);
    std::string text = "enum {\n";
    for (std::size_t i = 0; i < variables.size(); ++i) {
        text += "    " + name + std::string(mark) + identifiers[i] + " = " + std::to_string(i) +
                ", /* " + InComment(variables[i].Name) + ", " +
                Bounds(variables[i].Lower, variables[i].Upper) + " */\n";
    }
    return text + "    " + name + std::string(count) + " = " + std::to_string(variables.size()) +
           "\n};\n\n";
}

} // namespace

std::string Banner(std::string_view file, std::string_view what, std::string_view checksum) {
    return "/* " + std::string(file) + ": " + std::string(what) +
           "\n * Generated; change the system instead and generate it anew."
           "\n * SHA-256 of the definition texts, a line each for inputs, outputs and rules:"
           "\n * " +
           std::string(checksum) + "\n */\n";
}

std::string ArithmeticGuard(std::string_view upperName) {
    const std::string any(std::string(upperName) + "_ANY_PRECISION");
    return "#include <float.h>\n"
           "\n"
           "/* Results are equal to the bit wherever doubles are computed as doubles: not in "
           "wider\n"
           " * registers (32-bit x86: gcc -msse2 -mfpmath=sse), not reordered (-ffast-math), and\n"
           " * with a product rounded before it is added (-ffp-contract=off, as set below).\n"
           " * Define " +
           any +
           " to do without that.\n"
           " */\n"
           "#ifndef " +
           any +
           "\n"
           "#if FLT_RADIX != 2 || DBL_MANT_DIG != 53\n"
           "#error \"double is no IEEE double here\"\n"
           "#endif\n"
           "#if defined FLT_EVAL_METHOD && FLT_EVAL_METHOD != 0\n"
           "#error \"doubles are computed in wider registers: compile with -msse2 -mfpmath=sse\"\n"
           "#endif\n"
           "#ifdef __FAST_MATH__\n"
           "#error \"compile without -ffast-math\"\n"
           "#endif\n"
           "#endif\n"
           "#if defined __clang__\n"
           "#pragma STDC FP_CONTRACT OFF\n"
           "#elif defined __GNUC__\n"
           "#pragma GCC optimize (\"fp-contract=off\")\n"
           "#elif defined _MSC_VER\n"
           "#pragma fp_contract (off)\n"
           "#else\n"
           "#pragma STDC FP_CONTRACT OFF\n"
           "#endif\n"
           "\n";
}

std::string MakeHeader(const CompiledSystem& system, std::string_view name,
                       std::string_view checksum, std::string_view details) {
    const std::string upper = UpperCase(name);
    const std::string guard = upper + "_H";
    const std::string function(name);
    return Banner(function + ".h", "a fuzzy system.", checksum) + "#ifndef " + guard +
           "\n#define " + guard +
           "\n\n#ifdef __cplusplus\nextern \"C\" {\n#endif\n\n"
           "/* Places in the array of inputs. */\n" +
           Places(system.Inputs, upper, "_IN_", "_INPUTS") +
           "/* Places in the array of outputs. */\n" +
           Places(system.Outputs, upper, "_OUT_", "_OUTPUTS") + std::string(details) + "int " +
           function + "(const double *inputs, double *outputs);\n\n" +
           "#ifdef __cplusplus\n}\n#endif\n\n#endif\n";
}

} // namespace Quorvane::Code
