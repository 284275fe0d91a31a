// What a drawing has around its items: header, tables, the heads of blocks, objects.
#pragma once

#include <cstdint>
#include <map>
#include <string>

#include "convert/ExportMapping.h"
#include "convert/PairOutput.h"

namespace convert {

class DrawingFrame {
  public:
    DrawingFrame(const ModelContent& content, ExportMapping& mapping, int version, PairOutput& out)
        : content_(content), mapping_(mapping), version_(version), out_(out) {}

    std::uint64_t NewHandle() { return next_++; }
    void PutHeader(std::uint64_t handles);  // the file uses fewer than that
    void PutTables();
    // block: index, or kModelSpace, kPaperSpace.
    std::uint64_t RecordOf(int block) const { return records_.at(block); }
    void BeginBlock(int block, const std::string& name, const std::string& layer, const PairRun* pairs);
    void EndBlock(int block, const std::string& layer);
    void PutObjects();

    static constexpr int kModelSpace = -1, kPaperSpace = -2;

  private:
    void BeginTable(const char* name, std::size_t count);
    void BeginEntry(const char* type, const char* marker, const std::string& name, int flags);
    void PutLineType(const char* name, const LineTypeOut& type);
    void PutStyle(const Entry& style);
    void PutDimensionStyle(const Entry& style);

    const ModelContent& content_;
    ExportMapping& mapping_;
    int version_;
    PairOutput& out_;
    std::uint64_t next_ = 0x20;
    std::uint64_t table_ = 0;
    std::map<int, std::uint64_t> records_;
    std::map<std::string, std::uint64_t> styleHandles_;  // by those of the drawing
};

}  // namespace convert
