// convert_bench: the figures that reading a drawing into the model and writing it are held to, against the bare reader
// and a plain copy of the pairs. All of it in memory: the medium plays no part.
#include <malloc.h>

#include <cstdio>
#include <cstdlib>
#include <new>
#include <optional>
#include <stdexcept>
#include <string>

#include "benchmarks/Measure.h"
#include "convert/Convert.h"
#include "drawing/DrawingPairs.h"

namespace {

std::size_t inUse = 0;

}  // namespace

void* operator new(std::size_t size) {
    void* const memory = std::malloc(size > 0 ? size : 1);
    if (!memory) throw std::bad_alloc();
    inUse += _msize(memory);
    return memory;
}
void operator delete(void* memory) noexcept {
    if (memory) inUse -= _msize(memory);
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept { operator delete(memory); }

namespace {

constexpr int kRounds = 3;  // each takes seconds
constexpr std::size_t kSize = 100'000'000;
constexpr double kReading = 3.0, kMemory = 4.0, kWriting = 2.0;

class Source final : public ByteSource {
  public:
    explicit Source(std::string_view bytes) : rest_(bytes) {}
    int Read(char* buffer, unsigned size) override {
        const std::size_t count = rest_.copy(buffer, size);
        rest_.remove_prefix(count);
        return static_cast<int>(count);
    }

  private:
    std::string_view rest_;
};

struct Nowhere final : ByteSink {
    std::size_t count = 0;
    bool Write(std::string_view bytes) override { return count += bytes.size(), true; }
};

void Require(bool holds, const char* what) {
    if (!holds) throw std::runtime_error(what);
}

std::string Point(int code, int i) {
    char text[96];
    std::snprintf(text, sizeof text, "%3d\r\n%d.%06d\r\n%3d\r\n%d.5\r\n%3d\r\n0.0\r\n", code, i % 977, i, code + 10,
                  i % 89, code + 20);
    return text;
}
std::string Layer(int i) { return "  8\r\nLAYER" + std::to_string(i % 40) + "\r\n"; }

std::string Line(int i) {
    return "  0\r\nLINE\r\n  5\r\n" + std::to_string(100000 + i) + "\r\n100\r\nAcDbEntity\r\n" + Layer(i) + " 62\r\n" +
           std::to_string(i % 7) + "\r\n100\r\nAcDbLine\r\n" + Point(10, i) + Point(11, i + 1);
}
// As the oldest drawings have them: without the markers that newer versions want.
std::string OldPolyline(int i) {
    std::string text = "  0\r\nPOLYLINE\r\n" + Layer(i) + " 66\r\n1\r\n 70\r\n0\r\n" + Point(10, 0);
    for (int vertex = 0; vertex < 10; ++vertex) text += "  0\r\nVERTEX\r\n" + Layer(i) + Point(10, 10 * i + vertex);
    return text + "  0\r\nSEQEND\r\n" + Layer(i);
}

std::string Drawing(const char* version, std::string (*item)(int), std::size_t size) {
    std::string text = std::string("0\r\nSECTION\r\n2\r\nHEADER\r\n9\r\n$ACADVER\r\n1\r\n") + version +
                       "\r\n0\r\nENDSEC\r\n0\r\nSECTION\r\n2\r\nENTITIES\r\n";
    text.reserve(size + 1000);
    for (int i = 0; text.size() < size; ++i) text += item(i);
    return text + "  0\r\nENDSEC\r\n  0\r\nEOF\r\n";
}

std::string Same(std::string_view text) { return std::string(text); }  // the drawings are ASCII

class Bench {
  public:
    explicit Bench(std::string bytes) : bytes_(std::move(bytes)) {
        import_.unicode = output_.unicode = {Same, Same};
        output_.params.outputVersion = 3;
    }

    bool Reading(const char* what) {
        const Comparison reading = Compare(
            kRounds, [this] { Read(); }, [this] { ReadBare(); });
        return Report(std::string(what) + ", read into the model / by the bare reader", reading, kReading);
    }
    bool Memory(const char* what) {
        content_.reset();
        const std::size_t before = inUse;
        Read();
        const double share = static_cast<double>(inUse - before) / static_cast<double>(bytes_.size());
        return ReportValue(std::string(what) + ", memory of the model", share, kMemory, "times the file");
    }
    bool Writing(const char* what) {
        Read();
        const Comparison writing = Compare(
            kRounds, [this] { Write(); }, [this] { Copy(); });
        return Report(std::string(what) + ", written as 2000 / its pairs copied", writing, kWriting);
    }

  private:
    void Read() {
        Source source(bytes_);
        convert::Summary summary;
        content_.emplace();
        Require(ReadDrawing(source, import_, *content_, summary) == 0, "the drawing is not read");
    }
    void ReadBare() const {
        Source source(bytes_);
        static DxfReader reader(ShortestReal);
        Require(reader.Open(source), "the drawing is not opened");
        while (reader.ReadLine() && reader.LineAsCode() >= 0) reader.ReadLine();
    }
    void Write() const {
        Nowhere sink;
        convert::Summary summary;
        Require(WriteDrawing(*content_, {0, content_->modelPicture}, output_, sink, summary) == 0,
                "nothing is written");
    }
    void Copy() const {
        Source source(bytes_);
        Nowhere sink;
        static drawing::DrawingPairs pairs(ShortestReal);
        DxfWriter writer(sink, false);
        Require(pairs.Open(source) == 0, "the drawing is not opened");
        while (pairs.Next()) writer.Put(pairs.Code(), pairs.Text());
        Require(writer.Finish() && pairs.Error() == 0, "the drawing is not copied");
    }

    std::string bytes_;
    convert::ImportSettings import_;
    convert::ExportSettings output_;
    std::optional<convert::ModelContent> content_;
};

}  // namespace

int main() {
    try {
        Bench lines(Drawing("AC1015", Line, kSize));
        bool kept = lines.Reading("100 MB of lines");
        kept = lines.Memory("100 MB of lines") && kept;
        kept = lines.Writing("100 MB of lines") && kept;
        Bench polylines(Drawing("AC1009", OldPolyline, kSize / 4));
        kept = polylines.Reading("25 MB of old polylines") && kept;
        kept = polylines.Writing("25 MB of old polylines") && kept;
        std::printf("%s\n", kept ? "every figure is kept" : "a figure is missed");
        return kept ? 0 : 1;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "convert_bench: %s\n", failure.what());
        return 2;
    }
}
