// The exported functions: one reader on one file of the host.
#include "entry/host/kirodxf.h"

#include <fcntl.h>

#include <new>

#include "drawing/DxfReader.h"
#include "entry/host/kirobc.h"
#include "hostlayer/kirodxf/DxfErrorText.h"

namespace {

class HostFile final : public ByteSource {
  public:
    bool Open(const char* path) {
        try {
            return path && file_.Open(path, _O_RDONLY | _O_BINARY, 0);
        } catch (const std::bad_alloc&) {
            return false;
        }
    }
    void Close() { file_.Close(); }
    int Read(char* buffer, unsigned size) override { return file_.Read(buffer, size); }

  private:
    HxFileIO file_;
};

constexpr int kSuccess = 0;
constexpr int kFailure = -1;

DxfInputBlock inputBlock = {0, 0};
HostFile openFile;
DxfReader reader(ShortestReal);

int OpenWith(bool (DxfReader::*open)(ByteSource&), const char* path) {
    dxfxxclos();
    if (openFile.Open(path) && (reader.*open)(openFile)) return kSuccess;
    dxfxxclos();
    return kFailure;
}

}  // namespace

DxfInputBlock* DxfKiroInp() { return &inputBlock; }

int DxfCheckBinary(const char* path) {
    inputBlock = {0, 0};
    HostFile file;
    if (!file.Open(path)) return kFailure;
    char start[kDxfStartLength];
    unsigned length = 0;
    int count = 0;
    while (length < sizeof start &&
           (count = file.Read(start + length, static_cast<unsigned>(sizeof start) - length)) > 0)
        length += static_cast<unsigned>(count);
    if (count < 0) return kFailure;
    const DxfStart form = ExamineDxfStart({start, length});
    inputBlock = {form.binary, form.wideCodes};
    return kSuccess;
}

int DxfGetBinary() { return inputBlock.binary; }

int DxfOpenBinary(const char* path) { return OpenWith(&DxfReader::OpenBinary, path); }

int dxfxxopen(const char* path) { return OpenWith(&DxfReader::OpenText, path); }

void dxfxxclos() {
    reader.Close();
    openFile.Close();
}

int dxfinread() { return reader.ReadLine() ? kSuccess : kFailure; }

int dxfinctoi() { return reader.LineAsCode(); }

int dxfinbinary() { return reader.ReadPair(); }

int DxfGetText(char* out, int size) { return reader.GetText(out, size); }

const char* DxfGetErrorMessage(int code) {
    char text[256];
    static char message[512];  // EUC takes at most twice the bytes
    const std::size_t length = DxfErrorText(code, text, sizeof text);
    HxSjisToEuc(text, length, message, sizeof message);
    return message;
}
