// SPDX-License-Identifier: MIT
// qfis code: a system as C.
#include "code/CText.h"
#include "code/GenerateC.h"
#include "qfis/Commands.h"
#include "qfis/Files.h"
#include "qfis/Json.h"
#include "shared/NumberText.h"

namespace Quorvane::Qfis {
namespace {

using System::FuzzySystem;

/// The name that is given, or the file's own as an identifier.
std::string NameOf(const CodeOptions& options) {
    return options.Name.empty() ? Code::Identifier(PathOf(options.File).stem().u16string())
                                : options.Name;
}

struct Generated {
    Code::GeneratedCode Texts;
    std::optional<Code::TableError> Error;
};

Generated Generate(const FuzzySystem& system, const CodeOptions& options, const std::string& name) {
    try {
        if (!options.TableDivisions) {
            return {Code::GenerateC(system, name), {}};
        }
        if (*options.TableDivisions < 1) {
            throw InputError("a table needs at least one division");
        }
        const auto divisions = static_cast<std::size_t>(*options.TableDivisions);
        Code::GeneratedTable table = Code::GenerateTable(system, name, divisions);
        return {std::move(table.Code), std::move(table.Error)};
    } catch (const Code::CodeError& error) {
        throw InputError(options.File, {}, error.what());
    }
}

std::string Number(double number) {
    return std::string(NumberCharacters(number).View());
}

/// The outputs that a table has, in their order.
std::vector<std::string> OutputNames(const FuzzySystem& system) {
    std::vector<std::string> names;
    for (const Code::CompiledOutput& output : Code::Compile(system).Outputs) {
        names.push_back(Host::EncodeUtf8(output.Name));
    }
    return names;
}

void WriteError(std::ostream& out, const FuzzySystem& system, const Code::TableError& error) {
    const auto names = OutputNames(system);
    out << "error of the table, measured at " << error.Points << " points:\n";
    for (std::size_t i = 0; i < names.size(); ++i) {
        out << "    " << names[i] << ": at most " << Number(error.LargestOf[i]) << ", in the mean "
            << Number(error.MeanOf[i]) << '\n';
    }
}

Json ErrorJson(const FuzzySystem& system, const Code::TableError& error) {
    const auto names = OutputNames(system);
    Json json = {{"points", error.Points}, {"outputs", Json::array()}};
    for (std::size_t i = 0; i < names.size(); ++i) {
        json["outputs"].push_back(
            {{"name", names[i]}, {"largest", error.LargestOf[i]}, {"mean", error.MeanOf[i]}});
    }
    json["largestAt"] = error.Inputs;
    return json;
}

} // namespace

int Code(const CodeOptions& options, const Console& console) {
    const FuzzySystem system = LoadSystem(options.File, options.Control);
    const std::string name = NameOf(options);
    const auto [code, error] = Generate(system, options, name);
    const std::string header = options.Folder + '/' + name + ".h";
    const std::string source = options.Folder + '/' + name + ".c";
    WriteFile(header, code.Header);
    WriteFile(source, code.Source);
    if (options.Json) {
        Json json = {{"header", header},
                     {"source", source},
                     {"function", name},
                     {"sha256", Code::ChecksumOf(system)}};
        if (error) {
            json["error"] = ErrorJson(system, *error);
        }
        console.Out << json.dump(2) << '\n';
    } else {
        console.Out << header << '\n' << source << '\n';
        if (error) {
            WriteError(console.Out, system, *error);
        }
    }
    return Fine;
}

} // namespace Quorvane::Qfis
