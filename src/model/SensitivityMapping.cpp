#include "model/SensitivityMapping.h"

#include "model/Keys.h"
#include "model/Sensitivity.h"

namespace quorvi {

StageEntry sensitivityCodes(const plist::Dictionary& dictionary) {
    return {dpiToCode(dictionary.integer(keys::dpiX)), dpiToCode(dictionary.integer(keys::dpiY))};
}

void appendSensitivity(const plist::Dictionary& dictionary, StageEntry codes) {
    dictionary.append(keys::dpiX, codeToDpi(codes.dpiXCode));
    dictionary.append(keys::dpiY, codeToDpi(codes.dpiYCode));
    dictionary.append(keys::independentXY, codes.dpiXCode != codes.dpiYCode);
}

} // namespace quorvi
