// SPDX-License-Identifier: MIT
// qfis table: the response over a grid, in the files that the control's BatchData writes.
#include <cmath>
#include <fstream>

#include "engine/GridWalk.h"
#include "qfis/Commands.h"
#include "qfis/Engine.h"
#include "qfis/Files.h"
#include "qfis/Json.h"
#include "qfis/Progress.h"
#include "shared/FisError.h"
#include "shared/NumberText.h"

namespace Quorvane::Qfis {
namespace {

constexpr std::int32_t DefaultDivisions = 10;

/// A file of the table, made anew.
class TableFile {
  public:
    explicit TableFile(std::string path)
        : path_(std::move(path)), file_(PathOf(path_), std::ios::binary) {
        Check();
    }

    std::ofstream& Stream() { return file_; }

    void Close() {
        file_.close();
        Check();
    }

  private:
    void Check() const {
        if (!file_) {
            throw InputError(path_, {}, "the file cannot be written");
        }
    }

    std::string path_;
    std::ofstream file_;
};

class TableRun final : public RunTime::GridVisitor {
  public:
    TableRun(const System::FuzzySystem& system, const std::string& folder, std::int32_t divisions,
             const Console& console)
        : system_(system), engine_(system), inData_(folder + "/InData.txt"),
          outData_(folder + "/OutData.txt"), divisions_(divisions), progress_(console),
          points_(std::pow(divisions + 1.0, static_cast<double>(system.Inputs.size()))) {}

    std::size_t Run() {
        std::vector<RunTime::GridAxis> axes;
        for (const System::InputVariable& input : system_.Inputs) {
            axes.push_back({input.Lower, input.Upper});
        }
        RunTime::WalkGrid(axes, divisions_, *this);
        inData_.Close();
        outData_.Close();
        return visited_;
    }

    void SetInput(std::size_t axis, double value) override { engine_.SetInput(axis, value); }

    void VisitPoint(std::string_view point) override {
        inData_.Stream() << point << "\r\n";
        engine_.Fire();
        line_.clear();
        for (std::size_t i = 0; i < system_.Outputs.size(); ++i) {
            if (const auto output = engine_.Output(i)) {
                line_ += NumberCharacters(*output).View();
            }
            line_ += ' ';
        }
        outData_.Stream() << line_ << "\r\n";
        constexpr std::size_t ProgressPoints = 4096;
        if (++visited_ % ProgressPoints == 0) {
            progress_.Show(static_cast<double>(visited_) / points_);
        }
    }

  private:
    const System::FuzzySystem& system_;
    Engine engine_;
    TableFile inData_;
    TableFile outData_;
    std::int32_t divisions_;
    Progress progress_;
    double points_;
    std::size_t visited_ = 0;
    std::string line_;
};

} // namespace

int Table(const TableOptions& options, const Console& console) {
    const System::FuzzySystem system = LoadSystem(options.File, options.Control);
    const std::int32_t divisions = options.Divisions > 0 ? options.Divisions : DefaultDivisions;
    try {
        const std::size_t points = TableRun(system, options.Folder, divisions, console).Run();
        if (options.Json) {
            console.Out << Json{{"points", points},
                                {"files",
                                 {options.Folder + "/InData.txt", options.Folder + "/OutData.txt"}}}
                               .dump(2)
                        << '\n';
        } else {
            console.Out << points << " points in " << options.Folder << "/InData.txt and "
                        << options.Folder << "/OutData.txt\n";
        }
    } catch (const FisError&) {
        throw InputError(options.File, {},
                         "the grid needs an input, and universes narrower than the largest number");
    }
    return Fine;
}

} // namespace Quorvane::Qfis
