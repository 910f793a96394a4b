// Stands between the panel and its settings file: looks at every save, and lets some of them fail.
#pragma once

#include <QStringList>

#include <functional>

#include "model/FileCalls.h"

namespace quorvi::test {

class SaveWitness final : public FileCalls {
  public:
    /// Called right after a file took the settings file's place, before anybody hears of it.
    std::function<void()> saved = [] {};
    /// As many saves as this find the disk full.
    int failing = 0;

    int renameat(int folder, const char* from, const char* to) override;
    /// Nobody cuts the power here, and a hundred thousand saves are many.
    int fsync(int file) override;
};

} // namespace quorvi::test
