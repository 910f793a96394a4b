// Intercepts the panel's saves: checks every one, and makes some fail.
#pragma once

#include <QStringList>

#include <functional>

#include "base/FileCalls.h"

namespace quorvi::test {

class SaveWitness final : public FileCalls {
  public:
    /// Called right after a file took the settings file's place, before anybody hears of it.
    std::function<void()> saved = [] {};
    /// Called when a save brings its file to the disk, and right before it exchanges that with the settings
    /// file. True when it has changed the settings file, which the save then has to do all over.
    std::function<bool()> amidSave = [] { return false; };
    std::function<bool()> beforeExchange = [] { return false; };
    /// As many saves as this find the disk full.
    int failing = 0;

    int renameat(int folder, const char* from, const char* to) override;
    int renameat2(int folder, const char* from, const char* to, unsigned flags) override;
    /// Nobody cuts the power here, and a hundred thousand saves are many.
    int fsync(int file) override;

  private:
    [[nodiscard]] bool isFull();
};

} // namespace quorvi::test
