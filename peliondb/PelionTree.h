// The Pelion database on the drives of the computer: the folder \PELION in the root of a drive, in it a folder for each
// group, in those a folder for each user. Names are Shift-JIS, in the order in which the system lists them.
#pragma once

#include <string>
#include <vector>

constexpr int kMostPelionDrives = 32;
constexpr int kMostPelionNames = 512;  // of groups, and of users

struct PelionNames {
    std::vector<std::string> names;
    std::vector<std::string> silent;  // drives that did not answer
};

class PelionTree {
  public:
    // "C:" and its like: the fixed and the remote drives that have the folder.
    PelionNames Drives();
    // Of a drive that is there.
    PelionNames Groups(const std::string& drive) const;
    PelionNames Users(const std::string& drive, const std::string& group) const;

  private:
    bool MayBeSilent(char letter) const;
    PelionNames Look(const std::string& folder, bool (*wanted)(const std::string& name)) const;

    std::string fixed_;  // letters; what kind a drive is is asked for once, for the system is slow to say
};
