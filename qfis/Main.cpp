// SPDX-License-Identifier: MIT
// The commands and options, as typed.
#include "qfis/Main.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <functional>
#include <map>

#include "qfis/Commands.h"
#include "qfis/Files.h"
#include "qfis/Json.h"

namespace Quorvane::Qfis {
namespace {

constexpr const char* About =
    "qfis - explain, check, run, test, tabulate, compare and convert fuzzy systems, and turn them\n"
    "into C.\n\n"
    "FILE is a plain-text definition (.fuzzy), a form (.form), or a text with the three "
    "definition\n"
    "texts, plain or stored (.txt). Its content tells which. Exit code: 0 fine, 1 findings, 2 bad\n"
    "input.";

/// A command with its options, and what runs it.
struct Command {
    CLI::App* App;
    std::function<int(const Console&)> Run;
    const bool* Json;
};

/// Declares the commands and remembers them.
class CommandLine {
  public:
    CommandLine() : app_(About, "qfis") {
        app_.require_subcommand(1);
        app_.set_help_flag("-h,--help", "Show this help.");
        // A path may begin with "/".
        app_.allow_windows_style_options(false);
        AddHelp();
        AddExplain();
        AddRun();
        AddTest();
        AddTable();
        AddDiff();
        AddConvert();
        AddCheck();
        AddCode();
    }

    int Run(std::vector<std::string> arguments, const Console& console) {
        // CLI11 takes them from the end.
        std::ranges::reverse(arguments);
        try {
            app_.parse(std::move(arguments));
        } catch (const CLI::CallForHelp&) {
            const auto chosen = app_.get_subcommands();
            console.Out << (chosen.empty() ? &app_ : chosen.front())->help();
            return Fine;
        } catch (const CLI::ParseError& error) {
            console.Err << "qfis: " << error.what() << "\nqfis help tells more.\n";
            return BadInput;
        }
        if (help_->parsed()) {
            return Help(console);
        }
        const auto chosen = std::ranges::find_if(
            commands_, [](const Command& command) { return command.App->parsed(); });
        return RunCommand(*chosen, console);
    }

  private:
    static int RunCommand(const Command& command, const Console& console) {
        try {
            return command.Run(console);
        } catch (const InputError& error) {
            if (*command.Json) {
                console.Out << Json{{"error",
                                     {{"file", error.File},
                                      {"line", error.Where.Line},
                                      {"column", error.Where.Column},
                                      {"message", error.what()}}}}
                                   .dump(2)
                            << '\n';
            } else {
                console.Err << error.Line() << '\n';
            }
            return BadInput;
        }
    }

    int Help(const Console& console) {
        if (topic_.empty()) {
            // The program's own help() would be that of the command "help".
            console.Out << app_.get_formatter()->make_help(&app_, app_.get_name(),
                                                           CLI::AppFormatMode::Normal);
            return Fine;
        }
        const auto all = app_.get_subcommands([](const CLI::App*) { return true; });
        const auto topic = std::ranges::find(all, topic_, &CLI::App::get_name);
        if (topic == all.end()) {
            console.Err << "qfis: there is no command \"" << topic_ << "\"\n";
            return BadInput;
        }
        console.Out << (*topic)->help();
        return Fine;
    }

    void AddHelp() {
        help_ = app_.add_subcommand("help", "Tell what a command does and takes.");
        help_->add_option("COMMAND", topic_, "The command.");
    }

    template <class Options>
    CLI::App* Add(const std::string& name, const std::string& about, Options& options,
                  int (*run)(const Options&, const Console&), const std::string& footer) {
        CLI::App* const command = app_.add_subcommand(name, about);
        command->add_option("FILE", options.File, "The file with the system.")->required();
        command->add_option("--control", options.Control,
                            "The control's name, where a form has several; else the first.");
        command->add_flag("--json", options.Json, "Tell it as JSON.");
        command->footer(footer);
        commands_.push_back(
            {command, [&options, run](const Console& console) { return run(options, console); },
             &options.Json});
        return command;
    }

    void AddExplain() {
        CLI::App* const command =
            Add("explain", "Tell why each output is what it is.", explain_, Explain,
                "Example: qfis explain Tank.fuzzy Level=65 Inflow=10\n\n"
                "Tells the degree of every term, the rules that fire with their strength, each "
                "output's\n"
                "formula with its numbers and the share of each rule, and why an output is its "
                "default.\n"
                "An input that is not given has its lower bound, and NAME= gives it no value at "
                "all, as\n"
                "a program can. Exit code 1: the cycle fails.");
        command->add_option("INPUT=VALUE", explain_.Inputs, "The values of inputs.");
    }

    static void AddDialect(CLI::App* command, RunOptions& options) {
        command
            ->add_option("--decimal", options.Dialect.DecimalMark,
                         "The decimal mark of numbers: . (as it is) or ,")
            ->check(CLI::IsMember({".", ","}));
        command->add_option("--delimiter", options.Dialect.Delimiter,
                            "What separates fields; as it is ; with a decimal comma, else ,");
    }

    void AddRun() {
        CLI::App* const command = Add(
            "run", "Write outputs beside the inputs of readings.", run_, RunReadings,
            "Example: qfis run Tank.fuzzy readings.csv >results.csv\n\n"
            "The readings are CSV (RFC 4180) with a header: a column for each input, in any\n"
            "order; other columns stay. Without a file, or with -, they come from standard input\n"
            "and every line is answered at once. A reading that is empty or no number makes the\n"
            "cycle fail, as in the control, and its outputs are their defaults. As in the\n"
            "control, a reading counts as unchanged where its 15 digits are. Exit code 1: some\n"
            "failed. With --json, each line is an object.");
        command->add_option("READINGS", run_.Readings, "The file with the readings.");
        AddDialect(command, run_);
    }

    void AddTest() {
        CLI::App* const command = Add(
            "test", "Check outputs against expected ones.", test_, TestCases,
            "Example: qfis test Tank.fuzzy cases.csv --tolerance 0.001\n\n"
            "The cases are CSV as for run, with columns for outputs as well; an empty field is\n"
            "not checked. Exit code 1: an output is not what was expected.");
        command->add_option("CASES", test_.Readings, "The file with the cases.")->required();
        command
            ->add_option("--tolerance", test_.Tolerance,
                         "How far an output may be from what was expected.")
            ->check(CLI::NonNegativeNumber)
            ->default_val(1e-9);
        AddDialect(command, test_);
    }

    void AddTable() {
        CLI::App* const command = Add(
            "table", "Tabulate the outputs over a grid of inputs.", table_, Table,
            "Example: qfis table Tank.fuzzy --divisions 20 -o surface\n\n"
            "Writes InData.txt and OutData.txt as the control's BatchData does, byte for byte.");
        command->add_option("-n,--divisions", table_.Divisions,
                            "How many equal parts each input's range has; 0 is 10.");
        command->add_option("-o,--output", table_.Folder, "The folder of the files.");
    }

    void AddDiff() {
        CLI::App* const command = Add(
            "diff", "Tell what two systems differ in.", diff_, Diff,
            "Example: qfis diff Old.form New.fuzzy\n\n"
            "Variables, bounds, terms and points, and rules that were added, removed or changed.\n"
            "Exit code 1: they differ.");
        command->add_option("OTHER", diff_.Other, "The file with the other system.")->required();
    }

    void AddConvert() {
        CLI::App* const command = Add(
            "convert", "Write a system in another format.", convert_, Convert,
            "Example: qfis convert RoomHeating.form -o RoomHeating.fuzzy\n\n"
            "Formats: fuzzy (.fuzzy), form (.form), texts (.txt) and stored. Nothing is lost but\n"
            "comments, or the file is refused. A form that is there keeps all but the system of\n"
            "its first fuzzy control.");
        command->add_option("-o,--output", convert_.Output, "The file to write.")->required();
        command
            ->add_option("--format", convert_.Format,
                         "The format, where the ending does not tell it.")
            ->check(CLI::IsMember({"fuzzy", "form", "texts", "stored"}));
    }

    void AddCheck() {
        Add("check", "Tell what is wrong with a system, or worth knowing of it.", check_, Check,
            "Example: qfis check Tank.fuzzy\n\n"
            "Errors: what cannot work. Warnings: gaps where no rule fires, rules that contradict\n"
            "each other, never fire or say nothing new, variables and terms that nothing uses, "
            "ranges\n"
            "that terms do not cover or outputs do not reach. Notes: jumps, the steepest place, "
            "and\n"
            "general rules of less weight.\n\n"
            "All is exact but this: gaps and reached ranges of very large systems (\"about\", \"as "
            "far as\n"
            "samples show\"), jumps and steepest places, which are the largest among samples.\n"
            "Exit code 1: an error or a warning.");
    }

    void AddCode() {
        CLI::App* const command = Add(
            "code", "Write a system as C99.", code_, Code,
            "Example: qfis code Tank.fuzzy -o src\n\n"
            "Writes NAME.c and NAME.h: a function without heap, library or state, whose results "
            "are\n"
            "equal to the control's to the bit. With --table it looks them up in a table of so "
            "many\n"
            "divisions of each input instead and interpolates; the error is measured and told.");
        command->add_flag("--c", code_.IsC, "As C99, the one language there is.");
        command->add_option("-o,--output", code_.Folder, "The folder of the files.");
        command->add_option("--name", code_.Name,
                            "The function's name; else that of the system's file.");
        command->add_option("--table", code_.TableDivisions,
                            "A lookup table with so many divisions of each input.");
    }

    static void CompleteDialect(CsvDialect& dialect) {
        if (dialect.Delimiter == '\0') {
            dialect.Delimiter = dialect.DecimalMark == ',' ? ';' : ',';
        }
    }

    static int RunReadings(const RunOptions& options, const Console& console) {
        RunOptions complete = options;
        CompleteDialect(complete.Dialect);
        return Qfis::Run(complete, console);
    }

    static int TestCases(const TestOptions& options, const Console& console) {
        TestOptions complete = options;
        CompleteDialect(complete.Dialect);
        return Qfis::Test(complete, console);
    }

    CLI::App app_;
    CLI::App* help_ = nullptr;
    std::string topic_;
    std::vector<Command> commands_;
    ExplainOptions explain_;
    RunOptions run_;
    TestOptions test_;
    TableOptions table_;
    DiffOptions diff_;
    ConvertOptions convert_;
    CheckOptions check_;
    CodeOptions code_;
};

} // namespace

int Main(std::vector<std::string> arguments, const Console& console) {
    try {
        return CommandLine().Run(std::move(arguments), console);
    } catch (const std::exception& error) {
        console.Err << "qfis: " << error.what() << '\n';
        return BadInput;
    }
}

} // namespace Quorvane::Qfis
