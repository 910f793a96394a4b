// The panel's views in each of its languages.
#pragma once

#include <QLocale>

#include <memory>
#include <string>

#include "platform/Bundle.h"
#include "platform/InterfaceText.h"
#include "resources/Interface.h"

namespace quorvi::test {

inline constexpr const char* languages[] = {"ar", "de", "en", "es", "fr", "it", "ja", "pt_BR", "ru", "zh_CN"};

/// The views of the panel in that language, mirrored where it is written from the right.
class SpokenInterface {
  public:
    explicit SpokenInterface(const std::string& language)
        : m_bundle(QUORVI_BUNDLE, {language}), view(std::make_unique<QWidget>()) {
        setInterfaceTextLookup([this](const QString& english) { return text(english); });
        views = std::make_unique<Interface>(*view);
        setInterfaceTextLookup(nullptr);
        setLayoutDirection(*view, QLocale(QString::fromStdString(language)).textDirection());
    }

    [[nodiscard]] QString text(const QString& english) const {
        return QString::fromStdU16String(m_bundle.localizedString(english.toStdU16String(), "Localizable"));
    }

  private:
    Bundle m_bundle;

  public:
    std::unique_ptr<QWidget> view;
    std::unique_ptr<Interface> views;
};

} // namespace quorvi::test
