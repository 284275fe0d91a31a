#include "model/ModelNames.h"

#include "entry/host/kirobc.h"
#include "entry/host/kiromdl.h"

const std::string& OpenedName::Open(const char* euc, std::size_t limit) {
    euc_ = euc ? euc : "";
    shown_ = HxEucEncoder::Euc2Sjis(euc_, limit);
    return shown_;
}

std::string OpenedName::Stored(const std::string& cell) const {
    return cell == shown_ ? euc_ : HxEucEncoder::Sjis2Euc(cell);
}

bool OpenedName::HasRoom(const std::string& cell) const {
    return cell == shown_ || Stored(cell).size() <= kHxLongestName;
}
