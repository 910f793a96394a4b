#include "window/ShownPath.h"

#include <QFile>

#include "widgets/ShownText.h"

namespace quorvi {

QString shownPath(const std::filesystem::path& path, const std::filesystem::path& home) {
    const std::filesystem::path fromHome = path.lexically_relative(home);
    const bool isInside = !home.empty() && !fromHome.empty() && *fromHome.begin() != "..";
    const std::filesystem::path folder = (isInside ? "~" / fromHome : path).parent_path();
    const auto shown = [](const std::filesystem::path& part) {
        return shownText(QFile::decodeName(part.c_str()));
    };
    QString name = shown(path.filename());
    if (folder.empty())
        return name;
    return folder == "/" ? QLatin1Char('/') + name : shown(folder) + QLatin1Char('/') + name;
}

std::filesystem::path nativePath(const QString& path) {
    return QFile::encodeName(path).toStdString();
}

} // namespace quorvi
