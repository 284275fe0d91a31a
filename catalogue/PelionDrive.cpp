#include "catalogue/PelionDrive.h"

#include <windows.h>

#include <fstream>
#include <stdexcept>
#include <string>

namespace kiro {
namespace {

namespace fs = std::filesystem;

// Left in the folder, so that one that a broken-off program has left behind is known.
constexpr wchar_t kMark[] = L".kiro";

constexpr const wchar_t* kDemo[] = {
    L"KAN1/ACCESS/",
    L"KAN1/FORMAT/",
    L"KAN1/SUZUKI/PIPE-001",
    L"KAN1/SUZUKI/PIPE-002",
    L"KAN1/SUZUKI/配管図　ソ",
    L"KAN1/TANAKA/VALVE-01",
    L"KAN2/SATO/FLANGE",
    L"設計/山田/架台",
    L"設計/佐々木/表札",
    L"設計/QA/CHECK-1",
    L"GUARD/",
};

}  // namespace

fs::path PelionDrive::Folder() {
    wchar_t windows[MAX_PATH] = L"";
    GetWindowsDirectoryW(windows, MAX_PATH);
    return fs::path(windows).root_path() / L"PELION";
}

PelionDrive::PelionDrive(std::span<const wchar_t* const> paths) {
    const fs::path folder = Folder();
    if (fs::exists(folder) && !fs::exists(folder / kMark)) throw std::runtime_error("there is a \\PELION already");
    fs::remove_all(folder);
    fs::create_directories(folder);
    std::ofstream(folder / kMark).close();
    for (const std::wstring_view path : paths) {
        const fs::path file = folder / path;
        fs::create_directories(file.parent_path());
        if (!path.ends_with(L'/')) std::ofstream(file).close();
    }
}

PelionDrive::~PelionDrive() {
    std::error_code ignored;
    fs::remove_all(Folder(), ignored);
}

std::shared_ptr<PelionDrive> DemoPelionDrive() {
    static std::weak_ptr<PelionDrive> shared;
    if (auto drive = shared.lock()) return drive;
    try {
        auto drive = std::make_shared<PelionDrive>(kDemo);
        shared = drive;
        return drive;
    } catch (const std::runtime_error&) {
        return nullptr;
    }
}

}  // namespace kiro
