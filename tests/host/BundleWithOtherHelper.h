// The real bundle with another program as its helper.
#pragma once

#include <QTemporaryDir>

#include <filesystem>
#include <fstream>
#include <string>

namespace quorvi::test {

class BundleWithOtherHelper {
  public:
    /// The helper's program is a shell script of these lines.
    explicit BundleWithOtherHelper(const std::string& script) {
        namespace fs = std::filesystem;
        const fs::path real = fs::path(QUORVI_BUNDLE) / "Contents";
        const fs::path ours = path().toStdString() + "/Contents";
        const fs::path application = "Resources/KyvarQuorviHelper.app/Contents";
        fs::create_directories(ours / application / "Linux");
        for (const auto& entry : {fs::path("Info.plist"), fs::path("Linux"), application / "Info.plist"})
            fs::create_symlink(real / entry, ours / entry);
        for (const auto& entry : fs::directory_iterator(real / "Resources"))
            if (entry.path().extension() != ".app")
                fs::create_symlink(entry.path(), ours / "Resources" / entry.path().filename());
        std::ofstream(program()) << "#!/bin/sh\n" << script;
        fs::permissions(program(), fs::perms::owner_all);
    }
    /// The program that is launched.
    [[nodiscard]] std::filesystem::path program() const {
        return path().toStdString() +
               "/Contents/Resources/KyvarQuorviHelper.app/Contents/Linux/KyvarQuorviHelper";
    }
    [[nodiscard]] QString path() const { return m_folder.filePath(QStringLiteral("A.prefPane")); }

  private:
    QTemporaryDir m_folder;
};

} // namespace quorvi::test
