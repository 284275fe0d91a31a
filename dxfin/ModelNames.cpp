#include "dxfin/ModelNames.h"

#include <windows.h>

#include <limits>
#include <utility>
#include <vector>

#include "dxfin/DrawingSearch.h"
#include "entry/host/kirobc.h"
#include "entry/host/kiromdl.h"
#include "text/SlotText.h"
#include "ui/Text.h"

namespace {

constexpr std::size_t kLongestPath = 255;  // bytes, as the host's model files have it

}  // namespace

std::wstring FoldedName(const std::string& name) {
    std::wstring wide = kiro::ui::ToWide(name);
    CharUpperBuffW(wide.data(), static_cast<DWORD>(wide.size()));
    return wide;
}

std::string FileNameOfModel(KrUtility& utility, const std::string& model) {
    char file[kKrPathSize];
    const int length = mdlfname(HxEucEncoder::Sjis2Euc(model).c_str(), file, sizeof file);
    if (length <= 0 || length >= kKrPathSize) return {};
    std::string name = HxEucEncoder::Euc2Sjis(file);
    return utility.CheckFileName(name.c_str()) ? name : std::string();  // some names are the system's
}

ModelFile FileOfModel(KrUtility& utility, const std::string& model) {
    std::string name = FileNameOfModel(utility, model);
    if (name.empty()) return {};
    const bool upperCase = utility.GetFilnameUL(kModelKey) != 0;
    std::string path = HxFile::ToFullPath(kModelKey, HxEucEncoder::Sjis2Euc(name), upperCase, true);
    if (path.size() > kLongestPath) path.clear();
    return {std::move(name), std::move(path)};
}

std::unordered_set<std::wstring> ModelFiles(KrUtility& utility) {
    std::unordered_set<std::wstring> names;
    char pattern[kKrPathSize] = "*";
    if (!utility.InternalPathName(kModelKey, pattern, sizeof pattern) ||
        !utility.RealPathName(kModelKey, pattern, sizeof pattern))
        return names;
    DrawingSearch search;
    std::vector<FoundDrawing> files;
    if (search.Begin(pattern) == DrawingSearch::Start::kFound) search.Take((std::numeric_limits<int>::max)(), files);
    for (const FoundDrawing& file : files) names.insert(FoldedName(file.name));
    return names;
}

std::string ModelNamer::Propose(const std::string& fileName) {
    const std::size_t dot = fileName.rfind('.');  // no second byte of a character is one
    const std::string base = Valid(fileName.substr(0, dot == 0 ? fileName.npos : dot));
    const std::wstring folded = FoldedName(base);
    std::string name = base;
    while (!taken_.insert(FoldedName(name)).second) {
        int& last = last_[folded];
        const std::string number = "_" + std::to_string(last = (last ? last : 1) + 1);
        name = std::string(CutAtCharacter(base, kModelNameLength - number.size())) + number;
    }
    return name;
}

std::string ModelNamer::Valid(std::string name) const {
    if (!utility_.CheckModelName(name.c_str())) {
        std::string valid;
        for (std::string_view rest = name; !rest.empty();) {
            std::string character(CutAtCharacter(rest, 1));
            if (character.empty()) character = CutAtCharacter(rest, 2);
            rest.remove_prefix(character.size());
            valid += utility_.CheckModelName(character.c_str()) ? character : "_";
        }
        name = std::move(valid);
    }
    name = CutAtCharacter(name, kModelNameLength);
    return name.empty() || FileNameOfModel(utility_, name).empty() ? "_" + name : name;
}
