// Drawings as files, and what is said of those that cannot be read.
#pragma once

#include <string>

#include "drawing/ByteSource.h"
#include "drawing/Results.h"
#include "tables/FileReplace.h"

namespace cli {

class FileSource final : public ByteSource {
  public:
    // What keeps the file from being read, or kDone.
    drawing::Result Open(const std::string& name);
    int Read(char* buffer, unsigned size) override;

  private:
    OwnedFile file_;
};

std::string TextOf(int error);

}  // namespace cli
