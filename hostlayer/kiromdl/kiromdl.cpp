#include "entry/host/kiromdl.h"

#include <algorithm>
#include <cstring>
#include <exception>

#include "ModelFile.h"
#include "hostlayer/include/KiroHost.h"

namespace {

constexpr int kBaseScale = -1;

const Model& Of(const HxModel* model) { return *reinterpret_cast<const Model*>(model); }

// The messages are ASCII, so that any byte is a character's end.
void Tell(const char* what, char* message, std::size_t size) {
    if (!message || size == 0) return;
    const std::size_t length = std::min(std::strlen(what), size - 1);
    std::memcpy(message, what, length);
    message[length] = 0;
}

}  // namespace

int HxModelIsModified(const HxModel* model) { return model && Of(model).modified; }

double Scfval101(int picture) {
    return picture == kBaseScale ? ActiveModel().baseScale : ActiveModel().PictureScale(picture);
}

int HxPermItemDbGetMaxItemCount() { return ActiveModel().maxItemCount; }

int HxItemMaxSrCount() { return ActiveModel().maxSplitCount; }

int KiroHostLoadModel(const wchar_t* file, char* message, std::size_t size) {
    try {
        ActiveModel() = file ? ReadModelFile(file) : Model();
        Tell("", message, size);
        return 0;
    } catch (const ModelFileError& error) {
        Tell(error.what(), message, size);
    } catch (const std::exception&) {
        Tell("model: out of memory", message, size);
    }
    return 1;
}

void KiroHostSetModified(bool modified) { ActiveModel().modified = modified; }

// HxModel has no data of its own: to the callers it is only a name for what this library keeps.
HxModel* KiroHostModel() { return reinterpret_cast<HxModel*>(&ActiveModel()); }
