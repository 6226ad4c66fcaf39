// SPDX-License-Identifier: MIT
// FileDialogs: the system's dialogs for form files and for the folder of a batch.
#include "host/form/parts/FileDialogs.h"

#include "host/container/ComPtr.h"
#include "host/container/HResult.h"
#include "host/form/parts/Texts.h"

#include <array>

#include <commdlg.h>
#include <shobjidl.h>

namespace Quorvane::Host {

std::filesystem::path AskForFormFile(HWND owner, const std::filesystem::path& offered,
                                     bool saving) {
    std::array<wchar_t, MAX_PATH> path{};
    offered.wstring().copy(path.data(), path.size() - 1);
    OPENFILENAMEW ask{};
    ask.lStructSize = sizeof ask;
    ask.hwndOwner = owner;
    const std::wstring filter = GetText(TextId::FormFiles) + std::wstring(L"\0*.form\0", 8) +
                                GetText(TextId::AllFiles) + std::wstring(L"\0*.*\0", 5);
    ask.lpstrFilter = filter.c_str();
    ask.lpstrFile = path.data();
    ask.nMaxFile = static_cast<DWORD>(path.size());
    ask.lpstrDefExt = L"form";
    ask.Flags =
        OFN_NOCHANGEDIR | OFN_HIDEREADONLY | (saving ? OFN_OVERWRITEPROMPT : OFN_FILEMUSTEXIST);
    const BOOL chosen = saving ? GetSaveFileNameW(&ask) : GetOpenFileNameW(&ask);
    return chosen ? std::filesystem::path(path.data()) : std::filesystem::path();
}

std::filesystem::path AskForBatchFolder(HWND owner, const std::filesystem::path& offered) {
    ComPtr<IFileDialog> dialog;
    Check(CoCreateInstance(CLSID_FileOpenDialog, nullptr, CLSCTX_INPROC_SERVER,
                           __uuidof(IFileDialog), dialog.ReceiveVoid()),
          L"ask for a folder");
    dialog->SetOptions(FOS_PICKFOLDERS | FOS_FORCEFILESYSTEM | FOS_NOCHANGEDIR);
    dialog->SetTitle(GetText(TextId::BatchFolder));
    // The whole path as the offered name: it can be accepted, or typed over.
    dialog->SetFileName(offered.c_str());
    ComPtr<IShellItem> chosen;
    wchar_t* path = nullptr;
    if (dialog->Show(owner) != S_OK || dialog->GetResult(chosen.Receive()) != S_OK ||
        chosen->GetDisplayName(SIGDN_FILESYSPATH, &path) != S_OK) {
        return {};
    }
    std::filesystem::path folder = path;
    CoTaskMemFree(path);
    return folder;
}

} // namespace Quorvane::Host
