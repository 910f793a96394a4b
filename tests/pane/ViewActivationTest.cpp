// Greying a tree of views.

#include "widgets/ViewActivation.h"

#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QSlider>
#include <QTabWidget>
#include <QTableView>
#include <QTest>
#include <QVBoxLayout>

#include "widgets/Section.h"

using namespace quorvi;

class ViewActivationTest : public QObject {
    Q_OBJECT

  private slots:
    void init() {
        root = std::make_unique<QWidget>();
        auto* tabs = new QTabWidget(root.get());
        for (int page = 0; page < 2; ++page) {
            auto* box = new QGroupBox;
            auto* layout = new QVBoxLayout(box);
            for (QWidget* control : std::initializer_list<QWidget*>{new QPushButton, new QSlider,
                     new QComboBox, new QTableView, new QLabel(QStringLiteral("text"))})
                layout->addWidget(control);
            tabs->addTab(box, QStringLiteral("page"));
        }
    }

    void inactiveDisablesControlsOnEveryTabAndGreysTexts() {
        makeViewActive(root.get(), false);
        QCOMPARE(enabledControls(), 0);
        for (const QLabel* label : texts()) {
            QVERIFY(label->isEnabled());
            QCOMPARE(colourOf(label),
                QApplication::palette(label).color(QPalette::Disabled, QPalette::WindowText));
        }
    }

    void activeTakesAllOfThatBack() {
        makeViewActive(root.get(), false);
        makeViewActive(root.get(), true);
        QCOMPARE(enabledControls(), 8);
        for (const QLabel* label : texts())
            QCOMPARE(
                colourOf(label), QApplication::palette(label).color(QPalette::Active, QPalette::WindowText));
    }

    void headingsOfSectionsAreGreyedLikeTexts() {
        Section section;
        section.setTitle(QStringLiteral("Stages"));
        const QImage active = section.grab().toImage();
        makeViewActive(&section, false);
        QVERIFY(section.isEnabled());
        const QImage inactive = section.grab().toImage();
        section.setEnabled(false);
        QVERIFY(inactive == section.grab().toImage());
        section.setEnabled(true);
        makeViewActive(&section, true);
        QVERIFY(active != inactive);
        QVERIFY(section.grab().toImage() == active);
    }

    void containersKeepTheirOwnState() {
        makeViewActive(root.get(), false);
        for (const QGroupBox* box : root->findChildren<QGroupBox*>())
            QVERIFY(box->isEnabled());
        QVERIFY(root->findChild<QTabWidget*>()->isEnabled());
    }

    void activeAndInactiveTextsDiffer() {
        makeViewActive(root.get(), false);
        const QColor inactive = colourOf(texts().first());
        makeViewActive(root.get(), true);
        QVERIFY(inactive != colourOf(texts().first()));
    }

    void aTableIsDisabledAsAWhole() {
        QTableView table;
        makeViewActive(&table, false);
        QVERIFY(!table.isEnabled());
    }

    void nothingIsNoView() { makeViewActive(nullptr, false); }

  private:
    static QColor colourOf(const QLabel* label) {
        return label->palette().color(QPalette::Active, label->foregroundRole());
    }
    [[nodiscard]] int enabledControls() const {
        int count = 0;
        for (const QGroupBox* box : root->findChildren<QGroupBox*>())
            for (const QWidget* control : box->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly))
                count += !qobject_cast<const QLabel*>(control) && control->isEnabled() ? 1 : 0;
        return count;
    }
    [[nodiscard]] QList<QLabel*> texts() const {
        QList<QLabel*> result;
        for (QLabel* label : root->findChildren<QLabel*>())
            if (label->text() == QStringLiteral("text"))
                result << label;
        return result;
    }

    std::unique_ptr<QWidget> root;
};

QTEST_MAIN(ViewActivationTest)
#include "ViewActivationTest.moc"
