// The file of a drawing: written as the bytes come, and there when all of them are.
#pragma once

#include <utility>

#include "hostlayer/kirodxf/DxfWriter.h"
#include "tables/FileReplace.h"

class FileSink final : public ByteSink {
  public:
    explicit FileSink(SystemPath path) : file_(std::move(path)) {}
    bool Write(std::string_view bytes) override { return file_.Write(bytes); }
    FileReplacement& File() { return file_; }

  private:
    FileReplacement file_;
};
