// Model files: a mark, the length of what the model tells (JSON), that, what it holds, and a checksum of all of it.
#include <cstdint>
#include <cstring>
#include <new>

#include "ModelFile.h"
#include "entry/host/kirodxf.h"
#include "hostlayer/include/KiroHost.h"
#include "hostlayer/kirobc/ByteFile.h"
#include "hostlayer/kirobc/EucCodec.h"
#include "hostlayer/kirobc/Guarded.h"
#include "hostlayer/kirobc/HostFiles.h"
#include "hostlayer/kirobc/PathText.h"
#include "hostlayer/kiromdl/ModelStore.h"

namespace {

constexpr std::string_view kMark = "KIROMODEL 1\n";
constexpr std::string_view kExtension = ".mdl";

std::uint64_t NumberAt(std::string_view bytes, std::size_t offset) {
    std::uint64_t number = 0;
    std::memcpy(&number, bytes.data() + offset, sizeof number);
    return number;
}

}  // namespace

bool IsModelBytes(std::string_view file) { return file.starts_with(kMark); }

Model ReadModelBytes(std::string_view file) {
    constexpr std::size_t kNumber = sizeof(std::uint64_t), kStart = kMark.size() + kNumber;
    const auto fail = [](const char* what) { throw ModelFileError(std::string("file: ") + what); };
    if (!IsModelBytes(file) || file.size() < kStart + kNumber) fail("is no model file");
    const std::string_view summed = file.substr(0, file.size() - kNumber);
    if (NumberAt(file, summed.size()) != kirobc::Checksum<std::uint64_t>(summed)) fail("is not whole");
    const std::uint64_t length = NumberAt(file, kMark.size());
    if (length > summed.size() - kStart) fail("is not whole");
    const auto facts = static_cast<std::size_t>(length);
    Model model = ReadModelText(std::string(summed.substr(kStart, facts)));
    if (!ParseModelContent(summed.substr(kStart + facts), model.content)) fail("has what no drawing can have");
    return model;
}

int Mdlwrite(const char* path) {
    return kirobc::Guarded(static_cast<int>(kDxfNoMemory), [=]() -> int {
        Model& model = ActiveModel();
        const bool modified = model.modified;
        model.modified = false;
        const std::string facts = PrintModel(model);
        model.modified = modified;
        std::string file(kMark);
        kirobc::AppendNumber(file, std::uint64_t{facts.size()});
        file += facts;
        file += FormatModelContent(model.content);
        kirobc::AppendNumber(file, kirobc::Checksum<std::uint64_t>(file));
        const int error = kirobc::ReplaceHostFile(path, file);
        if (error == 0) model.modified = false;
        return error;
    });
}

int Mdlread1(const char* path) {
    return kirobc::Guarded(static_cast<int>(kDxfNoMemory), [=]() -> int {
        std::string bytes;
        if (const int error = kirobc::ReadHostFile(path, bytes)) return error;
        try {
            ActiveModel() = ReadModelBytes(bytes);
        } catch (const ModelFileError&) {
            return kDxfBroken;
        }
        return 0;
    });
}

int mdlfname(const char* name, char* out, int size) {
    if (out && size > 0) *out = '\0';
    return kirobc::Guarded(0, [=] {
        const std::wstring wide = kirobc::WideFromEuc(name ? name : "");
        if (!kirobc::IsFileName(wide)) return 0;
        const std::string file = std::string(name).append(kExtension);
        if (out && size > 0) {
            const auto limit = static_cast<std::size_t>(size) - 1;
            out[kirobc::SjisToEuc(kirobc::EucToSjis(file), out, limit).written] = '\0';
        }
        return static_cast<int>(file.size());
    });
}

// This host keeps all numbers.
void HxModelReaderSetIdenticalMap(bool) {}
