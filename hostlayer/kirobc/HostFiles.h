// Whole files of the host by their internal paths. What fails is told by an error code (entry/host/kirodxf.h).
#pragma once

#include <string>
#include <string_view>

#include "drawing/ByteSource.h"
#include "hostlayer/kirodlglib/KrFileHandle.h"
#include "tables/FileReplace.h"

namespace kirobc {

class FileSource final : public ByteSource {
  public:
    int Open(const char* path);
    int Read(char* buffer, unsigned size) override;

  private:
    FileHandle file_;
};

int ReadHostFile(const char* path, std::string& bytes);

// In one step: afterwards the old file or the new one is there, whole.
int WhyNotReplaced(const std::wstring& path, const FileReplacement& file);  // that did not take its place
int ReplaceHostFile(const char* path, std::string_view bytes);

}  // namespace kirobc
