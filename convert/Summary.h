// What became of a drawing, for the one who converts it: nothing gets lost without a word.
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <utility>

namespace convert {

enum class Fate {
    // By the tables and the automatic conversion. The detail says what became what.
    kLayerByTable,
    kLayerAutomatic,
    kLineTypeByTable,
    kLineTypeAutomatic,
    kHiddenLeftOut,  // as the parameters want it
    kMadeAnew,       // tables and objects of a drawing's housekeeping

    // What the result does not cover. The detail is a name.
    kFirstLoss,
    kLayerNotInTable = kFirstLoss,
    kLayersMerged,
    kLineTypeNotInTable,
    kLineTypesMerged,
    kWidthNotAssigned,
    kNumberNotInTable,  // a class or revision that the export's table gives no layer
    kColorNotInTable,
    kTypeNotWritten,
    kNoSuchBlock,
    kOtherLayout,
    kValueNotWritten,
    kLinkNotWritten,
    kWidthNotWritten,
    kPatternSimplified,
    kNameChanged,
    kTextCut,
    kNotExpanded,
    kFates,
};

class Summary {
  public:
    std::size_t items = 0;  // read, or written; without their parts
    std::size_t blocks = 0;

    void Note(Fate fate, std::string detail, std::size_t count = 1) { notes_[{fate, std::move(detail)}] += count; }
    const std::map<std::pair<Fate, std::string>, std::size_t>& Notes() const { return notes_; }
    bool IsComplete() const { return notes_.lower_bound({Fate::kFirstLoss, {}}) == notes_.end(); }

  private:
    std::map<std::pair<Fate, std::string>, std::size_t> notes_;
};

}  // namespace convert
