// The recently used files of a key: HOME\settings\used_KEY.txt, UTF-8, one name a line, newest first.
#pragma once

#include <string>
#include <vector>

#include "entry/host/KrUtility.h"

constexpr int kMaxUsedFiles = 16;

// False when there is a file that cannot be read. What is no name in it is passed over.
bool LoadUsedFiles(const std::string& key, std::vector<std::string>& names);
// False when the file could not be written; the old one is then as it was.
bool SaveUsedFiles(const std::string& key, const std::vector<std::string>& names);

bool SameFileName(const std::string& left, const std::string& right);  // but for letter case

// Fills the combo with the list; its edit's text and its choice are kept.
void FillCombo(KrWindow combo, const KrStringList& list);
