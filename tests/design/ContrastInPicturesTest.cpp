// The contrast of every text and sign in pictures of the real window: whatever draws it, style or panel. With
// QUORVI_BREEZE_COLOURS, a colour scheme such as BreezeDark, in Breeze with these colours; otherwise in the
// other styles.

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QFile>
#include <QHash>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QSlider>
#include <QStandardPaths>
#include <QStringListModel>
#include <QStyleFactory>
#include <QStyleOptionButton>
#include <QTabBar>
#include <QTemporaryDir>

#include "design/Themes.h"
#include "editors/backups/SentenceList.h"
#include "pane/PaneFixture.h"
#include "pane/PaneTestMain.h"
#include "widgets/Section.h"
#include "widgets/ThemeColours.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

/// The contrast of the ground, which is the commonest colour there, with the colour that stands out most.
qreal contrastIn(const QImage& picture, const QRect& place) {
    const qreal scale = picture.devicePixelRatio();
    const QRect pixels =
        QRectF(QPointF(place.topLeft()) * scale, QSizeF(place.size()) * scale).toRect() & picture.rect();
    QHash<QRgb, int> colours;
    for (int y = pixels.top(); y <= pixels.bottom(); ++y)
        for (int x = pixels.left(); x <= pixels.right(); ++x)
            ++colours[picture.pixel(x, y)];
    const auto commonest = std::max_element(colours.cbegin(), colours.cend());
    qreal highest = 1;
    for (auto colour = colours.cbegin(); colour != colours.cend(); ++colour)
        highest = std::max(highest, contrastOf(QColor(colour.key()), QColor(commonest.key())));
    return highest;
}

/// What the window shows in one picture of it: each text and each sign with its place.
class Picture {
  public:
    explicit Picture(QWidget& window) : m_window(window), m_picture(window.grab().toImage()) {
        for (QWidget* widget : window.findChildren<QWidget*>())
            // The guidelines leave out what is disabled.
            if (widget->isVisibleTo(&window) && widget->isEnabled() && !seenOf(*widget).isEmpty())
                measure(*widget);
    }

    /// The texts below and the signs below these contrasts, each with its contrast.
    [[nodiscard]] QStringList below(qreal text, qreal sign) const {
        QStringList result;
        for (const Found& found : m_found)
            if (found.contrast < (found.isText ? text : sign))
                result << QStringLiteral("%1: %2").arg(found.name).arg(found.contrast, 0, 'f', 2);
        return result;
    }
    [[nodiscard]] int texts() const {
        return int(
            std::count_if(m_found.begin(), m_found.end(), [](const Found& found) { return found.isText; }));
    }
    [[nodiscard]] int signs() const { return m_found.size() - texts(); }

  private:
    struct Found {
        QString name;
        bool isText;
        qreal contrast;
    };

    /// A view without a frame is covered by its own viewport.
    static QRect seenOf(const QWidget& widget) {
        QRegion seen = widget.visibleRegion();
        if (const auto* area = qobject_cast<const QAbstractScrollArea*>(&widget))
            seen += area->viewport()->visibleRegion().translated(area->viewport()->pos());
        return seen.boundingRect();
    }

    void note(const QWidget& widget, const QRect& place, const QString& text, bool isText = true) {
        const QRect seen = place & seenOf(widget);
        if (!seen.isEmpty() && (!isText || !text.trimmed().isEmpty()))
            m_found << Found{QStringLiteral("%1 “%2”").arg(widget.objectName(), text), isText,
                contrastIn(m_picture, QRect(widget.mapTo(&m_window, seen.topLeft()), seen.size()))};
    }

    void measure(const QWidget& widget) {
        if (const auto* label = qobject_cast<const QLabel*>(&widget))
            note(widget, label->contentsRect(), label->text());
        else if (const auto* section = qobject_cast<const Section*>(&widget))
            note(widget, QRect(0, 0, section->width(), section->fontMetrics().height()), section->title());
        else if (const auto* button = qobject_cast<const QAbstractButton*>(&widget))
            measureButton(*button);
        else if (const auto* popUp = qobject_cast<const QComboBox*>(&widget))
            note(widget, inner(*popUp), popUp->currentText());
        else if (const auto* field = qobject_cast<const QLineEdit*>(&widget))
            note(widget, inner(*field), field->text());
        else if (const auto* slider = qobject_cast<const QSlider*>(&widget))
            note(widget, slider->rect(), {}, false);
        else if (const auto* tabs = qobject_cast<const QTabBar*>(&widget))
            for (int index = 0; index < tabs->count(); ++index)
                note(widget, tabs->tabRect(index).adjusted(4, 4, -4, -8), tabs->tabText(index));
        else if (const auto* list = qobject_cast<const QAbstractItemView*>(&widget))
            measureList(*list);
    }

    void measureButton(const QAbstractButton& button) {
        note(button, inner(button), button.text());
        if (button.text().isEmpty() && !button.icon().isNull())
            note(button, inner(button), button.accessibleName(), false);
    }

    void measureList(const QAbstractItemView& list) {
        const QAbstractItemModel* model = list.model();
        for (int row = 0; model && row < model->rowCount(); ++row)
            for (int column = 0; column < model->columnCount(); ++column) {
                const QModelIndex cell = model->index(row, column);
                const QRect place = list.visualRect(cell).translated(list.viewport()->pos());
                if (list.rect().contains(place))
                    note(list, place.adjusted(2, 2, -2, -2), cell.data().toString());
            }
    }

    /// Without what a style draws around the text.
    static QRect inner(const QWidget& widget) { return widget.rect().adjusted(5, 4, -5, -4); }

    QWidget& m_window;
    QImage m_picture;
    QList<Found> m_found;
};

/// Elsewhere scripts/setup installs no packages.
bool isDebian() {
    return QFile::exists("/etc/debian_version");
}

QString breezeColours() {
    return qEnvironmentVariable("QUORVI_BREEZE_COLOURS");
}

} // namespace

class ContrastInPicturesTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() {
        if (!breezeColours().isEmpty())
            giveColoursToBreeze();
        if (QTest::currentTestFailed())
            return;
        m_fixture = std::make_unique<PaneFixture>();
        m_fixture->openWith(PaneFixture::sampleTree());
        m_fixture->window->resize(760, 560);
        m_fixture->selectTab(3);
        m_fixture->selectRow("quorviTableMacros", 1);
    }

    void everyTextAndSignStandsOut_data() {
        everyTheme();
        if (!breezeColours().isEmpty())
            return;
        int found = 0;
        for (const QString& style : QStyleFactory::keys())
            if (style.contains("adwaita", Qt::CaseInsensitive)) {
                QTest::newRow(qPrintable("style " + style)) << style;
                ++found;
            }
        QVERIFY2(found > 1 || !isDebian(),
            "Adwaita is not installed: run scripts/setup test, and with Qt 5 scripts/setup qt5.");
    }
    void everyTextAndSignStandsOut() {
        useStyleOfRow();
        const bool highContrast = isHighContrast(QApplication::palette());
        int texts = 0;
        int signs = 0;
        QStringList wrong;
        auto* tabs = m_fixture->find<QTabWidget>("quorviTabsMain");
        for (int tab = 0; tab < tabs->count(); ++tab) {
            m_fixture->selectTab(tab);
            QCoreApplication::processEvents();
            const Picture picture(*m_fixture->window);
            wrong << picture.below(highContrast ? 7 : 4.5, highContrast ? 7 : 3);
            texts += picture.texts();
            signs += picture.signs();
        }
        QVERIFY2(texts > 60 && signs >= 3, qPrintable(QStringLiteral("%1 %2").arg(texts).arg(signs)));
        QVERIFY2(wrong.isEmpty(), qPrintable(wrong.join("\n")));
    }

    void aChosenSentenceIsRead_data() { everyTheme(); }
    void aChosenSentenceIsRead() {
        useStyleOfRow();
        QWidget window;
        SentenceList list(&window);
        list.setModel(new QStringListModel({"Yesterday", "Friday"}, &list));
        window.resize(300, 100);
        window.setAttribute(Qt::WA_KeyboardFocusChange); // the focus came by a key, so it is drawn
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        list.setFocus();
        list.setCurrentIndex(list.model()->index(0, 0));
        const bool highContrast = isHighContrast(QApplication::palette());
        const Picture picture(window);
        QCOMPARE(picture.texts(), 2);
        QCOMPARE(picture.below(highContrast ? 7 : 4.5, 3).join("; "), QString());
    }

    void whatDoesNotStandOutIsFound() {
        QApplication::setStyle("fusion");
        QApplication::setPalette(paletteOf(kThemes[0]));
        QWidget window;
        QLabel label("grey", &window);
        label.setStyleSheet("color: #999999");
        label.resize(100, 30);
        window.resize(120, 40);
        window.show();
        QCOMPARE(Picture(window).below(4.5, 3).size(), 1);
        label.setStyleSheet("color: #555555");
        QCOMPARE(Picture(window).below(4.5, 3).size(), 0);
    }

    void cleanupTestCase() { m_fixture.reset(); }

  private:
    /// One row in Breeze, or one for each theme.
    static void everyTheme() {
        QTest::addColumn<QString>("style");
        if (!breezeColours().isEmpty()) {
            QTest::newRow("style Breeze") << QStringLiteral("breeze");
            return;
        }
        for (const Theme& theme : kThemes)
            QTest::newRow(theme.name) << QStringLiteral("fusion");
    }

    /// A style has the colours that it brings.
    static void useStyleOfRow() {
        QFETCH(QString, style);
        const QString row = QTest::currentDataTag();
        QApplication::setStyle(style);
        QApplication::setPalette(
            row.startsWith("style ") ? QApplication::style()->standardPalette() : paletteOf(themeNamed(row)));
    }

    /// Breeze reads its colours once in a program, from the desktop's settings.
    void giveColoursToBreeze() {
        if (!QStyleFactory::keys().contains("breeze", Qt::CaseInsensitive)) {
            if (!isDebian())
                QSKIP("Breeze is not installed.");
            QFAIL("Breeze is not installed: run scripts/setup test, and with Qt 5 scripts/setup qt5.");
        }
        const QString scheme = QStandardPaths::locate(
            QStandardPaths::GenericDataLocation, "color-schemes/" + breezeColours() + ".colors");
        QVERIFY2(!scheme.isEmpty(), qPrintable(breezeColours()));
        QVERIFY(m_settings.isValid());
        QVERIFY(QFile::copy(scheme, m_settings.filePath("kdeglobals")));
        qputenv("XDG_CONFIG_HOME", m_settings.path().toUtf8());
        QApplication::setStyle("breeze");
        const QColor window = QApplication::style()->standardPalette().color(QPalette::Window);
        QCOMPARE(window.lightnessF() < 0.5, breezeColours().contains("Dark"));
    }

    QTemporaryDir m_settings;
    std::unique_ptr<PaneFixture> m_fixture;
};

QUORVI_PANE_TEST_MAIN(ContrastInPicturesTest)
#include "ContrastInPicturesTest.moc"
