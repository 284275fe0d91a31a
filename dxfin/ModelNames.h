// The names of the models that a batch makes of its drawings, and the files of those models.
#pragma once

#include <string>
#include <unordered_map>
#include <unordered_set>

#include "entry/host/KrUtility.h"

constexpr char kModelKey[] = "#MODEL#";
constexpr unsigned int kModelNameLength = 63;  // characters that can be typed, and bytes that are proposed

// As a file system compares names. name: Shift-JIS.
std::wstring FoldedName(const std::string& name);

// The file of a model, by the model's name in Shift-JIS.
struct ModelFile {
    std::string name;  // Shift-JIS, without its folder
    std::string path;  // internal form; "" when no file can have that name
};
std::string FileNameOfModel(KrUtility& utility, const std::string& model);  // "" when no file can have that name
ModelFile FileOfModel(KrUtility& utility, const std::string& model);

// The folded names of all model files that there are.
std::unordered_set<std::wstring> ModelFiles(KrUtility& utility);

// Proposes a name for each drawing in turn, all of them different.
class ModelNamer {
  public:
    explicit ModelNamer(KrUtility& utility) : utility_(utility) {}
    // fileName: of the drawing, without its folder. What the host's names cannot hold becomes "_".
    std::string Propose(const std::string& fileName);

  private:
    std::string Valid(std::string name) const;

    KrUtility& utility_;
    std::unordered_set<std::wstring> taken_;
    std::unordered_map<std::wstring, int> last_;  // the number that a name got last
};
