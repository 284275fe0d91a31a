// The system's file chooser.
#pragma once

#include <windows.h>

#include <string>

struct ChooserRequest {
    HWND owner = nullptr;
    bool existing = true;  // to open a file; otherwise to name one that may not exist yet
    std::wstring title;
    std::wstring comment;   // what such files are called
    std::wstring wildcard;  // a pattern, a name or a path
    std::wstring folder;    // where it starts unless the wildcard says otherwise
};

enum class ChooserResult { kChosen, kCancelled, kFailed };

ChooserResult ChooseFile(const ChooserRequest& request, std::wstring& path);
