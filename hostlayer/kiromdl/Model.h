// The active model: what of a CAD model the commands ask for.
#pragma once

#include <array>
#include <optional>

constexpr int kPictures = 256;  // numbered from 1

struct Model {
    bool modified = false;
    double baseScale = 1.0;
    int maxItemCount = 100000;
    int maxSplitCount = 10000;
    std::array<std::optional<double>, kPictures> pictureScales;  // none: the picture is not used

    double PictureScale(int number) const;  // 1.0 where there is no such picture
};

Model& ActiveModel();
