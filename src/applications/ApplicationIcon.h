// The icons of applications.
#pragma once

#include <QIcon>

class QString;

namespace quorvi {

/// The icon that a desktop entry names: in the icon theme, or by an absolute path. Null for one that does not
/// exist.
[[nodiscard]] QIcon iconNamed(const QString& icon);

/// The icon of any application, which every desktop has.
[[nodiscard]] QIcon usualApplicationIcon();

/// The icon of an application that a profile stores, by its identifier: the one that its desktop entry names,
/// or the usual one. Reads that entry alone.
[[nodiscard]] QIcon iconOfStoredApplication(const QString& identifier);

} // namespace quorvi
