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
// "C:" and its like: the fixed and the remote drives that have the folder.
PelionNames PelionDrives();
PelionNames PelionGroups(const std::string& drive);
PelionNames PelionUsers(const std::string& drive, const std::string& group);
