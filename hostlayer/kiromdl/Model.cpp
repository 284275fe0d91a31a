#include "Model.h"

double Model::PictureScale(int number) const {
    if (number < 1 || number > kPictures) return 1.0;
    return pictureScales[static_cast<std::size_t>(number - 1)].value_or(1.0);
}

Model& ActiveModel() {
    static Model model;
    return model;
}
