// What a drawing has around its items: header, tables, the heads of blocks, objects.
#pragma once

#include "convert/ExportMapping.h"

namespace convert {

class DrawingFrame {
  public:
    DrawingFrame(const ModelContent& content, ExportMapping& mapping, int version, DxfWriter& out)
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
    void BeginTable(std::string_view name, std::size_t count);
    void BeginEntry(std::string_view type, std::string_view marker, std::string_view name, int flags);
    void PutPartOfBlock(int block, std::string_view type, std::string_view layer, std::string_view marker);
    void PutLineType(const LineTypeOut& type);
    void PutLayer(const LayerOut& layer);
    void PutStyle(const Entry& style);
    void PutDimensionStyle(const Entry& style);
    void PutBlockRecords();

    const ModelContent& content_;
    ExportMapping& mapping_;
    int version_;
    DxfWriter& out_;
    std::uint64_t next_ = 0x20, table_ = 0;
    std::map<int, std::uint64_t> records_;
    std::map<std::string, std::uint64_t, std::less<>> styleHandles_;  // by those of the drawing
};

}  // namespace convert
