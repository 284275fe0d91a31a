#include "entry/host/kiromdl.h"

#include <algorithm>
#include <cstring>
#include <exception>
#include <iterator>

#include "ModelFacts.h"
#include "ModelFile.h"
#include "hostlayer/include/KiroHost.h"

namespace {

constexpr int kBaseScale = -1;

// What is handed out has no data of its own: to the callers it is only a name for what this library keeps.
const Model& Of(const HxModel* model) { return *reinterpret_cast<const Model*>(model); }
const Model& Of(const HxPermItemDb* db) { return *reinterpret_cast<const Model*>(db); }
const Model& Of(const HxDloList* list) { return *reinterpret_cast<const Model*>(list); }
const Layout& Of(const HxDlo* layout) { return *reinterpret_cast<const Layout*>(layout); }

// The messages are ASCII, so that any byte is a character's end.
void Tell(const char* what, char* message, std::size_t size) {
    if (!message || size == 0) return;
    const std::size_t length = std::min(std::strlen(what), size - 1);
    std::memcpy(message, what, length);
    message[length] = 0;
}

}  // namespace

int HxModelIsModified(const HxModel* model) { return model && Of(model).modified; }

HxPermItemDb* HxModelGetPermItemDb(HxModel* model) { return reinterpret_cast<HxPermItemDb*>(model); }

HxDloList* HxModelGetDloList(HxModel* model) { return reinterpret_cast<HxDloList*>(model); }

int HxModelGetItemAttributes(const HxModel* model, std::uint32_t* words, int count) {
    constexpr int kPictureShift = 15;
    if (!model) return 0;
    const std::uint32_t attributes[] = {0, 0, 0, static_cast<std::uint32_t>(Of(model).currentPicture) << kPictureShift};
    constexpr int kWords = static_cast<int>(std::size(attributes));
    if (words) std::copy_n(attributes, std::clamp(count, 0, kWords), words);
    return kWords;
}

double Scfval101(int picture) {
    const Model& model = ActiveModel();
    if (picture == kBaseScale) return model.baseScale;
    const Picture* found = model.PictureAt(picture);
    return found ? found->scale : 1.0;
}

int HxPermItemDbGetMaxItemCount() { return ActiveModel().maxItemCount; }

int HxPermItemDbGetItemCount(const HxPermItemDb* db, int picture) {
    const Picture* found = db ? Of(db).PictureAt(picture) : nullptr;
    return found ? found->itemCount : 0;
}

int HxItemMaxSrCount() { return ActiveModel().maxSplitCount; }

HxDlo* HxDloListGetDlo(HxDloList* list, int number) {
    const Layout* layout = list ? Of(list).LayoutAt(number) : nullptr;
    return reinterpret_cast<HxDlo*>(const_cast<Layout*>(layout));
}

const char* HxDloGetName(const HxDlo* layout) { return layout ? Of(layout).name.c_str() : ""; }

int HxDloGetDloWindowCount(const HxDlo* layout) { return layout ? static_cast<int>(Of(layout).windows.size()) : 0; }

int HxDloGetDloWindowPicture(const HxDlo* layout, int index) {
    if (index < 0 || index >= HxDloGetDloWindowCount(layout)) return 0;
    return Of(layout).windows[static_cast<std::size_t>(index)];
}

int HxDloGetDloFrame(const HxDlo* layout, HxDloFrame* frame) {
    if (!layout || !frame || !Of(layout).frame) return 0;
    const Frame& source = *Of(layout).frame;
    *frame = {source.valid, source.kind, source.width, source.height, ""};
    source.name.copy(frame->name, sizeof frame->name - 1);
    return 1;
}

int KiroModelIsChecked() { return ActiveModel().checkBeforeExport; }

int KiroModelGetFault(int picture, int index, KiroModelFault* fault) {
    const Picture* found = ActiveModel().PictureAt(picture);
    if (!found || index < 0 || static_cast<std::size_t>(index) >= found->faults.size()) return 0;
    const Fault& source = found->faults[static_cast<std::size_t>(index)];
    if (fault) *fault = {source.item, source.text.c_str()};
    return 1;
}

int KiroModelWriterError(int layout, int picture) {
    const Model& model = ActiveModel();
    if (layout > 0) return model.LayoutAt(layout) ? model.LayoutAt(layout)->writerError : 0;
    return model.PictureAt(picture) ? model.PictureAt(picture)->writerError : 0;
}

const char* KiroModelMessageText(int number) {
    const auto& messages = ActiveModel().messages;
    const auto found = messages.find(number);
    return found != messages.end() ? found->second.c_str() : nullptr;
}

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

std::size_t KiroHostPrintModel(char* out, std::size_t size) {
    try {
        const std::string text = PrintModel(ActiveModel());
        if (out && size > 0) out[text.copy(out, size - 1)] = 0;
        return text.size();
    } catch (const std::exception&) {
        return 0;
    }
}

void KiroHostSetModified(bool modified) { ActiveModel().modified = modified; }

HxModel* KiroHostModel() { return reinterpret_cast<HxModel*>(&ActiveModel()); }
