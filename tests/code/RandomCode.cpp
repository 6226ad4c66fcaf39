// SPDX-License-Identifier: MIT
// Makes up systems and writes their code: random_code FOLDER.
//
// Each of the files part0.c to part19.c has the code of many systems, as compilers take longest to
// start; index.c lists them all.
#include <cstdio>
#include <exception>
#include <fstream>
#include <string>
#include <vector>

#include "code/GenerateC.h"
#include "system/DefinitionTexts.h"
#include "tests/code/RandomSystems.h"
#include "tests/reference/RandomSystem.h"

namespace {

using namespace Quorvane;

constexpr std::size_t Parts = 20;
constexpr std::size_t SystemsOfPart = 110;
/// Tables are long; one system in so many has one.
constexpr std::size_t SystemsPerTable = 8;

/// What the sources define beside the function, which here has to differ from system to system.
constexpr std::string_view LocalNames[] = {"defaults", "degree_in", "is_finite", "is_set",
                                           "lower",    "positions", "rule",      "rules",
                                           "table",    "term",      "terms",     "upper"};

std::string Ascii(const Text& text) {
    return {text.begin(), text.end()};
}

/// The source with its header in place of the line that includes it.
std::string InOne(const Code::GeneratedCode& code, const std::string& name) {
    std::string text = code.Source;
    const std::string include = "#include \"" + name + ".h\"\n";
    text.replace(text.find(include), include.size(), code.Header);
    for (const std::string_view local : LocalNames) {
        const std::string plain(local);
        text.insert(0, "#define " + plain + ' ' + name + '_' + plain + '\n');
        text += "#undef " + plain + '\n';
    }
    return text;
}

class Writer {
  public:
    explicit Writer(std::string folder) : folder_(std::move(folder)) {}

    void WritePart(std::size_t part) {
        std::ofstream file(folder_ + "/part" + std::to_string(part) + ".c", std::ios::binary);
        for (std::size_t i = 0; i < SystemsOfPart; ++i) {
            file << MakeCode("s" + std::to_string(part * SystemsOfPart + i));
        }
    }

    void WriteIndex() const {
        std::ofstream file(folder_ + "/index.c", std::ios::binary);
        file << "#include <stddef.h>\n#include \"RandomSystems.h\"\n"
             << declarations_ << "const struct random_system random_systems[] = {\n"
             << entries_ << "};\nconst unsigned random_system_count = " << count_ << ";\n";
    }

  private:
    /// The code of another system; none for one that has no code.
    std::string MakeCode(const std::string& name) {
        const Reference::SystemLimits limits{.Inputs = 4,
                                             .Terms = 5,
                                             .Outputs = 3,
                                             .Rules = 20,
                                             .OddNames = 10,
                                             .OddOutputs = 10,
                                             .BadRules = 0};
        const Reference::SystemTexts texts = Reference::MakeSystem(random_, limits);
        const System::FuzzySystem system =
            System::FromPlainTexts({texts.Inputs, texts.Outputs, texts.Rules});
        std::string code;
        try {
            code = InOne(Code::GenerateC(system, name), name);
        } catch (const Code::CodeError&) {
            return {};
        }
        Declare(name);
        std::string table = "NULL";
        if (count_ % SystemsPerTable == 0) {
            code += MakeTable(system, "t" + name, table);
        }
        entries_ += "{" + name + ", " + table + ", \"" + Ascii(texts.Inputs) + "\", \"" +
                    Ascii(texts.Outputs) + "\", \"" + Ascii(texts.Rules) + "\"},\n";
        ++count_;
        return code;
    }

    /// The code of a system as a table, whose name it sets; none where bounds or numbers are such
    /// as a table cannot have.
    std::string MakeTable(const System::FuzzySystem& system, const std::string& name,
                          std::string& table) {
        try {
            std::string code =
                InOne(Code::GenerateTable(system, name, RANDOM_TABLE_DIVISIONS).Code, name);
            table = name;
            Declare(name);
            return code;
        } catch (const Code::CodeError&) {
            return {};
        }
    }

    void Declare(const std::string& name) {
        declarations_ += "int " + name + "(const double *inputs, double *outputs);\n";
    }

    std::string folder_;
    Reference::Random random_{20260401};
    std::string declarations_;
    std::string entries_;
    std::size_t count_ = 0;
};

} // namespace

int main(int count, char** arguments) {
    try {
        Writer writer(count > 1 ? arguments[1] : ".");
        for (std::size_t part = 0; part < Parts; ++part) {
            writer.WritePart(part);
        }
        writer.WriteIndex();
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "random_code: %s\n", error.what());
        return 1;
    }
}
