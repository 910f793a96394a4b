#include "model/SensitivityMapping.h"

#include "model/Keys.h"
#include "model/Sensitivity.h"

namespace quorvi {

StageEntry sensitivityCodes(const plist::Dictionary& dictionary) {
    return {dpiToCode(dictionary.integer(keys::dpiX)), dpiToCode(dictionary.integer(keys::dpiY))};
}

void setSensitivity(const plist::Dictionary& dictionary, StageEntry codes) {
    dictionary.set(keys::dpiX, codeToDpi(codes.dpiXCode));
    dictionary.set(keys::dpiY, codeToDpi(codes.dpiYCode));
    dictionary.set(keys::independentXY, codes.dpiXCode != codes.dpiYCode);
}

} // namespace quorvi
