// SPDX-License-Identifier: MIT
// FileDialogs: the system's dialogs for form files and for the folder of a batch.
#include "host/form/parts/FileDialogs.h"

#include <commdlg.h>
#include <shobjidl.h>

#include <array>
#include <memory>

#include "com/ComPtr.h"
#include "com/FailedCall.h"
#include "host/form/parts/Texts.h"
#include "win/WideText.h"

namespace Quorvane::Host {

std::filesystem::path AskForFormFile(HWND owner, const std::filesystem::path& offered,
                                     bool saving) {
    std::array<wchar_t, MAX_PATH> path{};
    offered.native().copy(path.data(), path.size() - 1);
    OPENFILENAMEW ask{};
    ask.lStructSize = sizeof ask;
    ask.hwndOwner = owner;
    const Text filter = GetText(TextId::FormFiles) + Text(u"\0*.form\0", 8) +
                        GetText(TextId::AllFiles) + Text(u"\0*.*\0", 5);
    ask.lpstrFilter = Win::Wide(filter);
    ask.lpstrFile = path.data();
    ask.nMaxFile = static_cast<DWORD>(path.size());
    ask.lpstrDefExt = L"form";
    ask.Flags =
        OFN_NOCHANGEDIR | OFN_HIDEREADONLY | (saving ? OFN_OVERWRITEPROMPT : OFN_FILEMUSTEXIST);
    const BOOL chosen = saving ? ::GetSaveFileNameW(&ask) : ::GetOpenFileNameW(&ask);
    return chosen ? std::filesystem::path(path.data()) : std::filesystem::path();
}

std::filesystem::path AskForBatchFolder(HWND owner, const std::filesystem::path& offered) {
    Com::ComPtr<IFileDialog> dialog;
    Com::Check(::CoCreateInstance(CLSID_FileOpenDialog, nullptr, CLSCTX_INPROC_SERVER,
                                  __uuidof(IFileDialog), dialog.PutVoid()),
               u"ask for a folder");
    dialog->SetOptions(FOS_PICKFOLDERS | FOS_FORCEFILESYSTEM | FOS_NOCHANGEDIR);
    dialog->SetTitle(Win::Wide(GetText(TextId::BatchFolder)));
    // The whole path as the offered name: it can be accepted, or typed over.
    dialog->SetFileName(offered.c_str());
    Com::ComPtr<IShellItem> chosen;
    wchar_t* path = nullptr;
    if (dialog->Show(owner) != S_OK || dialog->GetResult(chosen.Put()) != S_OK ||
        chosen->GetDisplayName(SIGDN_FILESYSPATH, &path) != S_OK) {
        return {};
    }
    const std::unique_ptr<wchar_t, decltype(&::CoTaskMemFree)> memory(path, &::CoTaskMemFree);
    return path;
}

} // namespace Quorvane::Host
