// A Pelion database on a drive of the computer, for as long as somebody has it. It is the folder \PELION on the
// system's drive; one that somebody else has made there is left alone.
#pragma once

#include <filesystem>
#include <memory>
#include <span>

namespace kiro {

class PelionDrive {
  public:
    static std::filesystem::path Folder();

    // Folders and files below that folder: a path with an ending "/" is a folder. Throws when there is a folder of
    // somebody else's, or when it cannot be made.
    explicit PelionDrive(std::span<const wchar_t* const> paths);
    PelionDrive(const PelionDrive&) = delete;
    PelionDrive& operator=(const PelionDrive&) = delete;
    ~PelionDrive();
};

// That of the demonstration; null where there is one of somebody else's.
std::shared_ptr<PelionDrive> DemoPelionDrive();

}  // namespace kiro
