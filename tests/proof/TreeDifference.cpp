#include "proof/TreeDifference.h"

#include <cmath>

namespace quorvi::test {

namespace {

bool areBothNoNumber(const plist::Value& a, const plist::Value& b) {
    const auto* x = std::get_if<double>(&a.variant());
    const auto* y = std::get_if<double>(&b.variant());
    return x && y && std::isnan(*x) && std::isnan(*y);
}

class Comparison {
  public:
    QStringList paths;

    void compare(const plist::Value& a, const plist::Value& b, const QString& path) {
        if (a.dictionary() && b.dictionary())
            compareDictionaries(a.dictionary(), b.dictionary(), path);
        else if (a.array() && b.array() && a.array().size() == b.array().size())
            for (std::size_t index = 0; index < a.array().size(); ++index)
                compare(a.array().value(index), b.array().value(index), below(path, QString::number(index)));
        else if (!(a == b) && !areBothNoNumber(a, b))
            paths << path;
    }

  private:
    static QString below(const QString& path, const QString& step) {
        return path.isEmpty() ? step : path + QLatin1Char('/') + step;
    }

    void compareDictionaries(const plist::Dictionary& a, const plist::Dictionary& b, const QString& path) {
        for (const plist::Entry& entry : a.entries())
            compare(entry.value, b.value(entry.key), below(path, QString::fromStdString(entry.key)));
        for (const plist::Entry& entry : b.entries())
            if (!a.has(entry.key))
                paths << below(path, QString::fromStdString(entry.key));
    }
};

} // namespace

QStringList differences(const plist::Value& before, const plist::Value& after) {
    Comparison comparison;
    comparison.compare(before, after, QString());
    return comparison.paths;
}

} // namespace quorvi::test
