// SPDX-License-Identifier: MIT
// FormScript: finds and reads the script behind a form.
#include "host/script/RunningForm.h"

#include <fstream>
#include <iterator>

#include "host/container/Paths.h"
#include "host/formfile/FilePath.h"
#include "host/formfile/Utf8.h"

namespace Quorvane::Host {
namespace {

[[noreturn]] void Refuse(const std::filesystem::path& script, const std::string& reason) {
    throw FormFileError(0, "the script " + EncodeUtf8(PathText(script)) + " " + reason);
}

FormScript ReadScript(const std::filesystem::path& path) {
    FormScript script{path, ScriptHost::EngineFor(PathText(path.extension())), {}};
    if (script.Engine.empty()) {
        Refuse(path, "is neither .vbs nor .js");
    }
    if (!IsFilePath(path)) {
        Refuse(path, "has a zero character in its name");
    }
    std::ifstream stream(path, std::ios::binary);
    const std::string bytes(std::istreambuf_iterator<char>(stream), {});
    if (!stream) {
        Refuse(path, "cannot be read");
    }
    try {
        script.Code = DecodeUtf8(bytes);
    } catch (const Utf8Error&) {
        Refuse(path, "is not UTF-8");
    }
    return script;
}

} // namespace

std::optional<FormScript> FindScript(const FormFile& form, const std::filesystem::path& path) {
    if (const FormProperty* const named = form.Properties.Find(u"Script")) {
        const auto* const name = std::get_if<Text>(&named->Value);
        if (!name || name->empty()) {
            throw FormFileError(0, "the form's Script should be a file name in quotation marks");
        }
        return ReadScript(path.parent_path() / ToPath(*name));
    }
    for (const wchar_t* const extension : {L".vbs", L".js"}) {
        const std::filesystem::path beside =
            std::filesystem::path(path).replace_extension(extension);
        std::error_code ignored;
        if (std::filesystem::is_regular_file(beside, ignored)) {
            return ReadScript(beside);
        }
    }
    return std::nullopt;
}

} // namespace Quorvane::Host
