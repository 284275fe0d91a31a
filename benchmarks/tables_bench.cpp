// tables_bench: the figures that reading and writing a conversion table are held to. The table is the largest layer
// table of the import.
#include <io.h>
#include <process.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>

#include "benchmarks/Measure.h"
#include "dxfin_tables/DxfInLayerTable.h"
#include "tables/FileReplace.h"

namespace fs = std::filesystem;

namespace {

std::size_t allocations = 0;

}  // namespace

void* operator new(std::size_t size) {
    ++allocations;
    if (void* memory = std::malloc(size > 0 ? size : 1)) return memory;
    throw std::bad_alloc();
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

namespace {

constexpr int kRounds = 30;
constexpr int kParses = 20;  // in one figure: one alone is too short for the clock
constexpr int kMost = kDxfInLayerSlots - 1;
constexpr int kPiece = 257;
constexpr TableHeader kHeader = {"C:\\DXF\\TABLE\\DXFKIRO_LAYER", "2024/01/02 03:04:05"};

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, FileCloser>;

File Open(const fs::path& path, const wchar_t* mode) {
    File file(_wfopen(path.c_str(), mode));
    if (!file) throw std::runtime_error("a file cannot be opened");
    return file;
}

void Require(bool holds, const char* what) {
    if (!holds) throw std::runtime_error(what);
}

// As the program keeps its error list: what was listed is in the file, whatever happens next.
class ListingFile final : public ListingSink {
  public:
    explicit ListingFile(const fs::path& path) : file_(Open(path, L"w")) {}
    void Write(std::string_view text) override {
        std::fwrite(text.data(), 1, text.size(), file_.get());
        std::fflush(file_.get());
    }

  private:
    File file_;
};

void Black(int, std::int16_t* red, std::int16_t* green, std::int16_t* blue) { *red = *green = *blue = 0; }

struct ListingCounter final : ListingSink {
    std::size_t bytes = 0;
    void Write(std::string_view text) override { bytes += text.size(); }
};

class Bench {
  public:
    Bench() : folder_(fs::temp_directory_path() / ("kirotables_" + std::to_string(_getpid()))) {
        fs::create_directories(folder_);
    }
    Bench(const Bench&) = delete;
    Bench& operator=(const Bench&) = delete;
    ~Bench() {
        std::error_code ignored;
        fs::remove_all(folder_, ignored);
    }

    bool Reading() {
        FillTable();
        Require(ReplaceWholeFile(Table(), TextModeLines(FormatDxfInLayerTable(*table_, kHeader))), "no table");
        const Comparison reading = Compare(
            kRounds, [&] { ReadTable(); }, [&] { ReadLines(); });
        return Report("largest layer table, read and listed / line by line", reading, 2.0);
    }

    bool Writing() {
        FillTable();
        const std::string bytes = TextModeLines(FormatDxfInLayerTable(*table_, kHeader));
        const Comparison writing = Compare(
            kRounds,
            [&] {
                const std::string text = TextModeLines(FormatDxfInLayerTable(*table_, kHeader));
                Require(ReplaceWholeFile(Table(), text), "the table cannot be written");
            },
            [&] { WriteBytes(bytes); });
        // The bytes alone are not made exclusively, locked, renamed, nor is a leftover looked for.
        return Report("largest layer table, written / its bytes alone", writing, 3.0);
    }

    bool Growing() {
        const std::string one = Records(1000);
        const std::string two = Records(2000);
        const Comparison growth = Compare(
            kRounds, [&] { Parse(two, 2000); }, [&] { Parse(one, 1000); });
        const bool linear = Report("2,000 records / 1,000 records, read without a file", growth, 2.2);
        const double most = Allocations(one, 1000);
        return ReportValue("2,000 records, memory taken; as for 1,000", Allocations(two, 2000), most, "times") &&
               linear;
    }

  private:
    fs::path Table() const { return folder_ / "DXFKIRO_LAYER"; }
    fs::path Listing() const { return folder_ / "DXF_Interface.lis"; }

    void FillTable() {
        table_ = std::make_unique<DxfInLayerTable>();
        table_->layerClassCount = table_->layerRevisionCount = kMost;
        for (int i = 0; i <= kMost; ++i) {
            table_->layerClass[i] = table_->layerRevision[i] = i % 256 + 1;
            std::snprintf(table_->layerClassName[i], 257, i ? "CLASS_LAYER_OF_%05d" : "OTHER", i);
            std::snprintf(table_->layerRevisionName[i], 257, i ? "REVIS_LAYER_OF_%05d" : "OTHER", i);
        }
        for (int color = 0; color < kDxfInColors; ++color)
            table_->colorClass[color] = table_->colorRevision[color] = color % 256 + 1;
    }

    void ReadTable() {
        ListingFile file(Listing());
        TableListing listing(file);
        listing.FileName(Table().string());
        const auto bytes = ReadWholeFile(Table());
        Require(bytes.has_value(), "the table cannot be read");
        ParseDxfInLayerTable(*bytes, *table_, listing, Black);
        Require(!listing.HasErrors() && table_->layerClassCount == kMost && table_->layerRevisionCount == kMost,
                "the table is not whole");
    }
    void ReadLines() const {
        const File in = Open(Table(), L"rb");
        const File out = Open(Listing(), L"w");
        char line[kPiece];
        while (std::fgets(line, sizeof line, in.get())) {
            std::fputs("    ", out.get());
            std::fputs(line, out.get());
            std::fflush(out.get());
        }
    }
    void WriteBytes(const std::string& bytes) const {
        const fs::path beside = folder_ / "beside";
        File file = Open(beside, L"wb");
        Require(std::fwrite(bytes.data(), 1, bytes.size(), file.get()) == bytes.size() &&
                    std::fflush(file.get()) == 0 && _commit(_fileno(file.get())) == 0,
                "the bytes cannot be written");
        file.reset();
        fs::rename(beside, Table());
    }

    static std::string Records(int count) {
        std::string records;
        for (int i = 0; i < count; ++i) records += "LAYER LAYER_" + std::to_string(100000 + i) + " = 256\n";
        return records;
    }
    void ParseOnce(const std::string& bytes, int count) {
        ListingCounter counter;
        TableListing listing(counter);
        ParseDxfInLayerTable(bytes, *table_, listing, Black);
        Require(!listing.HasErrors() && table_->layerClassCount == count && counter.bytes > bytes.size(),
                "the records are not read");
    }
    void Parse(const std::string& bytes, int count) {
        for (int i = 0; i < kParses; ++i) ParseOnce(bytes, count);
    }
    double Allocations(const std::string& bytes, int count) {
        const std::size_t before = allocations;
        ParseOnce(bytes, count);
        return static_cast<double>(allocations - before);
    }

    fs::path folder_;
    std::unique_ptr<DxfInLayerTable> table_ = std::make_unique<DxfInLayerTable>();
};

}  // namespace

int main() {
    try {
        Bench bench;
        bool kept = bench.Reading();
        kept = bench.Writing() && kept;
        kept = bench.Growing() && kept;
        std::printf("%s\n", kept ? "every figure is kept" : "a figure is missed");
        return kept ? 0 : 1;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "tables_bench: %s\n", failure.what());
        return 2;
    }
}
