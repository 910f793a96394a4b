// In each language, in the fonts of the usual desktops and one size larger, the panel fits a screen of 1024 x
// 600 and no text is cut.

#include <QAbstractButton>
#include <QHeaderView>
#include <QLabel>
#include <QStackedWidget>
#include <QStandardItemModel>
#include <QTabBar>

#include "applications/ApplicationPanel.h"
#include "design/Languages.h"
#include "editors/backups/BackupPanel.h"
#include "editors/backups/EarlierPanel.h"
#include "editors/backups/SentenceList.h"
#include "editors/macros/FactorPanel.h"
#include "support/TemporaryFolder.h"
#include "widgets/AccelerationCurve.h"
#include "widgets/FaultLine.h"
#include "widgets/FilledText.h"
#include "widgets/KyvarQuorviTableView.h"
#include "widgets/MiceList.h"
#include "widgets/NoticeBar.h"
#include "widgets/Section.h"
#include "widgets/StageBar.h"
#include "widgets/StateLabel.h"
#include "widgets/TableColumns.h"
#include "widgets/WidgetTestMain.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

constexpr QSize kScreen(1024, 600);
constexpr QSize kDecoration(10, 34); // of a window, in the themes of the usual desktops
constexpr QSize kOpens(760, 560);    // as quorvi-settings opens
constexpr double kLarger = 4.0;      // points, of who needs large letters

/// What is cut of the widget's text; empty when all of it is seen.
QString cutOf(const QWidget& widget) {
    const auto complaint = [&](const QSize& wanted) {
        return QString("%1 has %2 x %3, wants %4 x %5")
            .arg(widget.objectName())
            .arg(widget.width())
            .arg(widget.height())
            .arg(wanted.width())
            .arg(wanted.height());
    };
    QSize wanted;
    if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
        if (label->text().isEmpty())
            return {};
        wanted = label->wordWrap() ? QSize(0, label->heightForWidth(label->width())) : label->sizeHint();
        if (label->wordWrap()) // the longest word
            wanted.setWidth(label->fontMetrics()
                                .boundingRect(QRect(0, 0, 1, 1), Qt::TextWordWrap, label->text())
                                .width());
    } else if (qobject_cast<const QAbstractButton*>(&widget) || qobject_cast<const QTabBar*>(&widget)) {
        wanted = widget.sizeHint();
    } else if (qobject_cast<const StageBar*>(&widget) || qobject_cast<const AccelerationCurve*>(&widget)) {
        wanted = widget.minimumSizeHint();
    } else if (const auto* group = qobject_cast<const Section*>(&widget)) {
        wanted = group->minimumSizeHint();
    } else if (const auto* header = qobject_cast<const QHeaderView*>(&widget)) {
        for (int section = 0; section < header->count(); ++section)
            if (header->orientation() == Qt::Horizontal &&
                header->sectionSize(section) < header->sectionSizeHint(section))
                return QString("%1: column %2").arg(widget.parentWidget()->objectName()).arg(section);
    }
    const bool fits = wanted.width() <= widget.width() && wanted.height() <= widget.height();
    return fits ? QString() : complaint(wanted);
}

QStringList cutIn(const QWidget& view) {
    QStringList cuts;
    for (const QWidget* widget : view.findChildren<QWidget*>()) {
        const bool isName = widget->objectName() == "quorviTextProfile"; // the user's, of any length
        if (!widget->isVisibleTo(&view) || widget->window() != view.window() || isName)
            continue;
        if (const QString cut = cutOf(*widget); !cut.isEmpty())
            cuts << cut;
    }
    return cuts;
}

} // namespace

class FitTest : public QObject {
    Q_OBJECT

  private slots:
    void init() {
        QFETCH(QFont, font);
        QApplication::setFont(font);
    }

    void theWindowFitsASmallScreenUncut_data() { eachLanguageIn(fonts(0) + fonts(1)); }
    void theWindowFitsASmallScreenUncut() {
        const Panel panel;
        panel.open(kOpens);
        QVERIFY2(panel.view().width() <= kScreen.width() - kDecoration.width(),
            qPrintable(QString::number(panel.view().width())));
        QTRY_COMPARE(panel.cutsOnTabs().join("; "), QString());
        // After every tab has been shown: only then their notes have said how high they are.
        QVERIFY2(
            panel.view().height() <= kScreen.height() - kDecoration.height(), qPrintable(panel.heights()));
    }

    void aLargeWindowIsUncut_data() { eachLanguageIn(fonts(0)); }
    void aLargeWindowIsUncut() {
        const Panel panel;
        panel.open({1600, 1000});
        QTRY_COMPARE(panel.cutsOnTabs().join("; "), QString());
    }

    void largeLettersAreUncut_data() { eachLanguageIn(fonts(kLarger)); }
    void largeLettersAreUncut() {
        const Panel panel;
        panel.open(kOpens);
        QTRY_COMPARE(panel.cutsOnTabs().join("; "), QString());
    }

    void theSheetsFitASmallScreenUncut_data() { eachLanguageIn(fonts(1)); }
    void theSheetsFitASmallScreenUncut() {
        const Panel panel;
        const QStringList questions{"Are you sure you want to restore all settings to default?",
            "Delete profile: ^1\r\rAre you sure you want to delete this profile?"};
        for (const QString& question : questions) {
            panel.spoken.views->confirm.quorviTextConfirm->setText(
                panel.spoken.text(question).replace("^1", "WWWWWWWWWWWWWWWWWWWW"));
            for (QDialog* sheet : panel.view().findChildren<QDialog*>()) {
                sheet->show();
                QVERIFY(QTest::qWaitForWindowExposed(sheet));
                QTRY_COMPARE(cutIn(*sheet).join("; "), QString());
                QVERIFY2(
                    sheet->width() <= kScreen.width() - kDecoration.width(), qPrintable(sheet->objectName()));
                QVERIFY2(sheet->height() <= kScreen.height() - kDecoration.height(),
                    qPrintable(sheet->objectName()));
                sheet->hide();
            }
        }
    }

    void theSetUpOfAMouseFitsASmallScreenUncut_data() { eachLanguageIn(fonts(1)); }
    void theSetUpOfAMouseFitsASmallScreenUncut() {
        const Panel panel;
        auto& views = panel.spoken.views->setUp;
        QDialog* sheet = panel.spoken.views->quorviPanelSetUp;
        views.textSetUpMouse->setText(QString(20, 'W'));
        sheet->show();
        QVERIFY(QTest::qWaitForWindowExposed(sheet));
        const QSize before = sheet->size();
        const auto show = [&](QLabel* label, const char* english) {
            label->setText(filledText(panel.spoken.text(english), {"7"}));
            QTRY_COMPARE(cutIn(*sheet).join("; "), QString());
            QCOMPARE(sheet->size(), before); // nothing moves under the pointer
        };
        for (const char* question :
            {"All numbers have been asked for.", "Press the button that should be number ^1, or skip."})
            show(views.textSetUpQuestion, question);
        for (const char* note :
            {"A key was pressed. If the mouse did that, press the same mouse button again.",
                "Press with the pointer over this window, but not over its buttons.",
                "Someone else is using the computer, or the service for mice has stopped.",
                "Another program is setting up a mouse. Try again when it has finished.",
                "Your choice for the mouse could not be saved."})
            show(views.textSetUpNote, note);
        QVERIFY(sheet->width() <= kScreen.width() - kDecoration.width());
        QVERIFY(sheet->height() <= kScreen.height() - kDecoration.height());
    }

    void theChooserOfApplicationsFitsASmallScreenUncut_data() { eachLanguageIn(fonts(1)); }
    void theChooserOfApplicationsFitsASmallScreenUncut() {
        const SpokenInterface spoken(currentLanguage());
        setInterfaceTextLookup([&](const QString& english) { return spoken.text(english); });
        ApplicationPanel chooser;
        setInterfaceTextLookup(nullptr);
        chooser.setLayoutDirection(spoken.view->layoutDirection());
        chooser.show();
        chooser.findChild<QLabel*>("textReadingGames")->show();
        QVERIFY(QTest::qWaitForWindowExposed(&chooser));
        QTRY_COMPARE(cutIn(chooser).join("; "), QString());
        QVERIFY(chooser.width() <= kScreen.width() - kDecoration.width());
        QVERIFY(chooser.height() <= kScreen.height() - kDecoration.height());
    }

    void theSheetsForBackupsFitASmallScreenUncut_data() { eachLanguageIn(fonts(1)); }
    void theSheetsForBackupsFitASmallScreenUncut() {
        const SpokenInterface spoken(currentLanguage());
        const PanelText text = [&](const char* english) { return spoken.text(english); };
        const TemporaryFolder folder;
        const History none(folder.path());
        const auto tree = plist::Dictionary::create();
        tree.set("version", 6);
        const QString name(20, 'W');
        setInterfaceTextLookup([&](const QString& english) { return spoken.text(english); });
        const QString difference =
            filledText(text("The macro “^1” is left out: it has more than 16 steps."), {name});
        const QStringList differences = QVector<QString>(40, difference).toList();
        BackupPanel backup(nullptr, {.question = text("Restore the settings in this backup?\r\r^1") + name,
                                        .differences = differences,
                                        .leftOut = differences.mid(0, 3).join('\n')});
        EarlierPanel empty(nullptr, {.history = none, .now = tree, .text = text});
        EarlierPanel earlier(nullptr, {.history = none, .now = tree, .text = text});
        FactorPanel factor(nullptr,
            {.request = text("Multiply the delays of the selected steps by:"),
                .hint = filledText(text("A number such as ^1 for half as long, or ^2 for twice as long."),
                    {QStringLiteral("0.5"), QStringLiteral("2")})},
            u'.');
        setInterfaceTextLookup(nullptr);
        auto* copies = earlier.findChild<QStackedWidget*>("stackEarlier");
        copies->setCurrentIndex(0);
        for (QDialog* sheet : {static_cast<QDialog*>(&backup), static_cast<QDialog*>(&empty),
                 static_cast<QDialog*>(&earlier), static_cast<QDialog*>(&factor)}) {
            sheet->setLayoutDirection(spoken.view->layoutDirection());
            sheet->show();
            QVERIFY(QTest::qWaitForWindowExposed(sheet));
            QTRY_COMPARE(cutIn(*sheet).join("; "), QString());
            QVERIFY(sheet->width() <= kScreen.width() - kDecoration.width());
            QVERIFY2(sheet->height() <= kScreen.height() - kDecoration.height(),
                qPrintable(QString::number(sheet->height())));
            sheet->hide();
        }
    }

    void theSentencesOfAListAreWholeInItsWidth_data() { eachLanguageIn(fonts(1)); }
    void theSentencesOfAListAreWholeInItsWidth() {
        const SpokenInterface spoken(currentLanguage());
        SentenceList list;
        list.setLayoutDirection(spoken.view->layoutDirection());
        const QString sentence =
            filledText(spoken.text("The macro “^1” is left out: it has more than 16 steps."), {"Build"});
        list.setSentences(QVector<QString>(12, sentence).toList());
        list.show();
        QVERIFY(QTest::qWaitForWindowExposed(&list));
        // At some of these widths a word more would fit without the scroll bar.
        for (int width = 160; width < 260; width += 3) {
            list.resize(width, 120);
            QCoreApplication::processEvents();
            const int margin = list.style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, &list) + 1;
            const QSize room = list.visualRect(list.model()->index(0, 0)).size();
            const QRect text(0, 0, list.viewport()->width() - 2 * (margin + list.spacing()), 1000);
            const int wanted = list.fontMetrics().boundingRect(text, Qt::TextWordWrap, sentence).height();
            QVERIFY2(room.height() >= wanted, qPrintable(QString::number(width)));
            QVERIFY(room.width() <= list.viewport()->width());
        }
    }

    void theLongestQuestionBeforeARemovalFitsASmallScreenUncut_data() { eachLanguageIn(fonts(1)); }
    void theLongestQuestionBeforeARemovalFitsASmallScreenUncut() {
        const Panel panel;
        const QString name(20, 'W');
        const auto filled = [&](const char* english, const QStringList& parts) {
            return filledText(panel.spoken.text(english), parts);
        };
        QString question =
            filled("Delete profile: ^1\r\rAre you sure you want to delete this profile?", {name});
        QStringList lines;
        for (const QString& input :
            {filled("Button ^1 of “^2”", {"4", name}), filled("Turning the wheel up in “^1”", {name}),
                filled("Turning the wheel down in “^1”", {name})})
            lines << filled("^1 switches to “^2” and will switch to “^3”.", {input, name, name});
        lines << filled(
            "Number of other buttons that will do nothing or switch to another profile: ^1", {"42"});
        question.insert(question.indexOf('\n'), '\n' + lines.join('\n'));
        auto& confirm = panel.spoken.views->confirm;
        confirm.quorviTextConfirm->setText(question);
        confirm.quorviConfirmButtonOK->setText(panel.spoken.text("Delete"));
        QDialog* sheet = panel.spoken.views->quorviPanelConfirm;
        sheet->show();
        QVERIFY(QTest::qWaitForWindowExposed(sheet));
        QTRY_COMPARE(cutIn(*sheet).join("; "), QString());
        QVERIFY(sheet->width() <= kScreen.width() - kDecoration.width());
        QVERIFY(sheet->height() <= kScreen.height() - kDecoration.height());
    }

    void whatCameOfAnImportOrExportIsUncut_data() { eachLanguageIn(fonts(1)); }
    void whatCameOfAnImportOrExportIsUncut() {
        const Panel panel;
        panel.open(kOpens);
        NoticeBar bar({.dismiss = panel.spoken.text("Close message"),
                          .dismissTip = panel.spoken.text("Closes this message."),
                          .offer = panel.spoken.text("Undo")},
            panel.view(), panel.spoken.views->main.quorviTabsMain->pages());
        const QString name(20, 'W');
        const QString path = "~/" + QString(30, 'W') + "/" + name + ".quorviProfile";
        for (const char* english : {"The profile “^1” was exported to ^2.", "“^1” was not exported to ^2: ^3",
                 "“^1” was not exported: there is already a file ^2.",
                 "The profile “^1” was imported. Buttons whose macro is missing: ^2"}) {
            bar.tell(
                0, {.text = filledText(panel.spoken.text(english), {name, path, "No space left on device"}),
                       .sign = NoticeSign::warning,
                       .offer = [] {}});
            QTRY_COMPARE(cutIn(bar).join("; "), QString());
            QVERIFY(bar.height() < panel.view().height() / 4);
        }
        for (const char* english : {"^1 was not imported: it is damaged or of another kind.",
                 "^1 was not imported: its macro has more than 16 steps.",
                 "^1 was not imported: there are already 12 macros, the maximum."}) {
            bar.tell(
                0, {.text = filledText(panel.spoken.text(english), {path}), .sign = NoticeSign::warning});
            QTRY_COMPARE(cutIn(bar).join("; "), QString());
        }
    }

    void whatARecordingOffersIsUncut_data() { eachLanguageIn(fonts(1)); }
    void whatARecordingOffersIsUncut() {
        const Panel panel;
        panel.open(kOpens);
        NoticeBar bar({.dismiss = panel.spoken.text("Close message"),
                          .dismissTip = panel.spoken.text("Closes this message."),
                          .offer = panel.spoken.text("Undo")},
            panel.view(), panel.spoken.views->main.quorviTabsMain->pages());
        const QString keys =
            filledText(panel.spoken.text("The recording ended before all keys were released: ^1."),
                {"Shift, Num Lock, Page Down, Caps Lock"});
        for (const char* offer : {"Add the Missing Releases", "Repair the Macro", "Remove the Press",
                 "Add the Missing Release", "Remove Caps Lock"})
            for (const QString& text : {keys + ' ' + panel.spoken.text("There is no room for every release."),
                     panel.spoken.text("Caps Lock was on, so the new steps press it too.")}) {
                bar.tell(0, {.text = text,
                                .sign = NoticeSign::warning,
                                .offer = [] {},
                                .offerTitle = panel.spoken.text(offer)});
                QTRY_COMPARE(cutIn(bar).join("; "), QString());
                QVERIFY(bar.height() < panel.view().height() / 4);
            }
    }

    void theFaultsOfAMacroFitASmallScreenUncut_data() { eachLanguageIn(fonts(1)); }
    void theFaultsOfAMacroFitASmallScreenUncut() {
        const Panel panel;
        auto& main = panel.spoken.views->main;
        main.quorviTabsMain->setCurrentIndex(3);
        panel.open(kOpens);
        const auto text = [&](const char* english, const QStringList& parts = {}) {
            return filledText(panel.spoken.text(english), parts);
        };
        const QString more = ' ' + text("And ^1 more.", {"15"});
        const std::array lines{
            std::pair(
                text("Step ^1 presses ^2, but nothing releases it.", {"16", text("mouse button ^1", {"5"})}) +
                    more,
                "Add the Missing Release"),
            std::pair(text("Step ^1 presses ^2, but nothing releases it.", {"16", "Num Lock"}) + ' ' +
                          text("There is no room for the release.") + more,
                "Remove the Press"),
            std::pair(text("Step ^1 releases ^2, but nothing has pressed it.", {"16", "Num Lock"}) + more,
                "Remove the Release"),
            std::pair(text("Step ^1 is the last one, so nothing waits for its delay.", {"16"}) + more,
                "Remove the Delay"),
        };
        for (const auto& [line, title] : lines) {
            main.viewStepFault->say(line, panel.spoken.text(title));
            QTRY_COMPARE(cutIn(panel.view()).join("; "), QString());
            QVERIFY2(panel.view().height() <= kScreen.height() - kDecoration.height(),
                qPrintable(panel.heights()));
            QVERIFY(panel.view().width() <= kScreen.width() - kDecoration.width());
        }
        const QString input = text("Turning the wheel down in “^1”", {QString(20, 'W')});
        main.viewStepFault->say(text("^1 runs this macro, which has no steps yet.", {input}) + more, {});
        QTRY_COMPARE(cutIn(panel.view()).join("; "), QString());
    }

    void theStateOfARecordingIsUncut_data() { eachLanguageIn(fonts(1)); }
    void theStateOfARecordingIsUncut() {
        const Panel panel;
        panel.open(kOpens);
        panel.spoken.views->main.quorviTabsMain->setCurrentIndex(3);
        QLabel* state = panel.spoken.views->main.textRecording;
        for (const char* english : {"Recording: 1 step left", "Recording: ^1 steps left",
                 "Recording: the macro is full", "Recording step ^1 again"}) {
            state->setText(panel.spoken.text(english).replace("^1", "16") + QStringLiteral(" \u00B7 ") +
                           panel.spoken.text("■ or hold Esc to stop"));
            QCoreApplication::processEvents();
            QTRY_COMPARE(cutOf(*state), QString());
        }
    }

  private:
    struct Panel {
        Panel() : spoken(currentLanguage()) {
            spoken.views->main.quorviTabsShowHideSteps->setCurrentIndex(0);
            for (auto* table : view().findChildren<KyvarQuorviTableView*>()) {
                auto* model = new QStandardItemModel(0, 0, table);
                QStringList titles;
                for (const TableColumn& column : tableColumns(table->tag()))
                    titles << spoken.text(column.title);
                model->setHorizontalHeaderLabels(titles);
                table->setModel(model);
            }
            auto& main = spoken.views->main;
            main.quorviTextConnection->setText(
                spoken.text("Switch the mouse on and plug in its cable or receiver."));
            // Five of the longest.
            const StageField widest{"6475 × 6450", 6475, 6450};
            main.quorviViewStages->setStages({widest, widest, widest, widest, widest}, 0);
            main.quorviTextDPI->setText("X = 6475, Y = 6475 DPI");
        }
        [[nodiscard]] QWidget& view() const { return *spoken.view; }
        /// The window manager may answer with sizes of its own meanwhile and later: who looks tries again.
        void open(const QSize& size) const {
            view().resize(size);
            view().show();
            if (!QTest::qWaitForWindowExposed(&view()))
                qFatal("the window does not come");
        }
        /// Both pages beside the macros, and both hints below the profiles.
        [[nodiscard]] QStringList cutsOnTabs() const {
            QStringList cuts;
            auto& main = spoken.views->main;
            for (const int page : {0, 1}) {
                main.quorviTabsShowHideSteps->setCurrentIndex(page);
                for (int tab = 0; tab < main.quorviTabsMain->count(); ++tab) {
                    main.quorviTabsMain->setCurrentIndex(tab);
                    QCoreApplication::processEvents();
                    cuts << cutIn(view());
                }
                main.textProfilesHint->setText(
                    spoken.text("Add a profile for each way you use the mouse. The “Application…” button "
                                "assigns it an application."));
                showWhatTheHelperTells();
            }
            cuts.removeDuplicates();
            return cuts;
        }
        /// The longest of it, on the tabs for profiles and the device.
        void showWhatTheHelperTells() const {
            auto& main = spoken.views->main;
            const QString name(20, 'W');
            const auto show = [&](QLabel* label, const char* english) {
                label->setText(filledText(spoken.text(english), {name, name}));
                label->show();
            };
            show(main.textRunningProfile, "Running now: ^1 – because ^2 is in front");
            show(main.textFrontHindrance,
                "GNOME needs an extension to report which application is in front, and it is turned off.");
            main.quorviButtonGnomeExtension->show();
            main.viewFrontHindrance->show();
            show(main.textPollingHint, "No program can set the polling rate of the mouse in use.");
            show(main.textLightsHint, "No program can control the lights of the mouse in use.");
            const QString detail = spoken.text("Bluetooth") + QStringLiteral(" \u00B7 ") +
                                   spoken.text("In use once all its buttons are released");
            QList<MouseLine> mice;
            for (const char* id : {"1", "2", "3", "4"})
                mice << MouseLine{id, name + name, detail, true, true};
            main.listMice->setLines(mice);
            main.groupMice->show();
        }
        /// What each tab needs, to be told when they are too high.
        [[nodiscard]] QString heights() const {
            QString heights = QString::number(view().height());
            for (int tab = 0; tab < spoken.views->main.quorviTabsMain->count(); ++tab) {
                const QWidget* page = spoken.views->main.quorviTabsMain->widget(tab);
                heights += QString(", %1 %2").arg(page->objectName()).arg(page->minimumSizeHint().height());
            }
            return heights;
        }
        SpokenInterface spoken;
    };

    static std::string currentLanguage() {
        QFETCH(QString, language);
        return language.toStdString();
    }

    /// The fonts of the desktops, so many points larger than they come.
    static QList<QFont> fonts(double larger) {
        QList<QFont> fonts;
        for (const DesktopFont& font : desktopFonts)
            fonts << installedFont(font.family, font.points + larger);
        return fonts;
    }

    static void eachLanguageIn(const QList<QFont>& fonts) {
        QTest::addColumn<QString>("language");
        QTest::addColumn<QFont>("font");
        for (const char* language : languages)
            for (const QFont& font : fonts)
                QTest::addRow("%s in %s %g", language, qPrintable(font.family()), font.pointSizeF())
                    << QString::fromLatin1(language) << font;
    }
};

QUORVI_WIDGET_TEST_MAIN(FitTest)
#include "FitTest.moc"
