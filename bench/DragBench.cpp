// A drag of the sensitivity slider, in the real controller and window: the longest frame, which is a step
// until it is drawn, and the waits for the disk. For comparison, the same steps as single actions, which each
// wait for the disk, and a bare write of the file.

#include <QApplication>
#include <QTabWidget>
#include <QTest>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <iterator>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "base/FileCalls.h"
#include "bench/Figures.h"
#include "bench/FullConfiguration.h"
#include "model/Keys.h"
#include "pane/PaneFixture.h"
#include "support/PrivateBus.h"
#include "support/SliderTools.h"
#include "widgets/KyvarQuorviSlider.h"

namespace quorvi::bench {
namespace {

constexpr int kSteps = 40; ///< of one drag: two thirds of a second at 60 frames a second
constexpr int kLongDragSteps = 1000;
constexpr double kFrame = 16; ///< ms, of a display at 60 Hz

class CountingCalls : public FileCalls {
  public:
    int renames = 0;
    int syncs = 0;

    int renameat(int folder, const char* from, const char* to) override {
        ++renames;
        return FileCalls::renameat(folder, from, to);
    }
    int renameat2(int folder, const char* from, const char* to, unsigned flags) override {
        ++renames;
        return FileCalls::renameat2(folder, from, to, flags);
    }
    int fsync(int file) override {
        ++syncs;
        return FileCalls::fsync(file);
    }
};

/// One series of steps.
struct Series {
    double longest = 0; ///< frame, in µs
    double total = 0;   ///< of all frames and of the end, in µs
    double end = 0;     ///< the release of the button until all is done, in µs
    int late = 0;       ///< frames that took longer than one of the display
    int saves = 0;
    int syncs = 0;
};

class Panel {
  public:
    Panel() {
        m_fixture.openWith(fullConfiguration());
        m_fixture.selectTab(1);
        m_slider = m_fixture.find<KyvarQuorviSlider>("quorviSliderSensitivityX");
    }

    /// Back and forth over the scale; each step is another value.
    Series drag(int steps = kSteps) {
        return measure(
            steps, [this] { QTest::mousePress(m_slider, Qt::LeftButton, {}, test::handleOf(*m_slider)); },
            [this](int step) { test::dragTo(*m_slider, placeOf(step)); },
            [this, steps] { QTest::mouseRelease(m_slider, Qt::LeftButton, {}, placeOf(steps)); });
    }
    /// The same number of steps, each a separate action.
    Series singleSteps() {
        return measure(
            kSteps, [] {}, [this](int) { QTest::keyClick(m_slider, Qt::Key_PageUp); }, [] {});
    }
    [[nodiscard]] std::filesystem::path file() const { return m_fixture.settingsFile(); }
    [[nodiscard]] bool isSaved() const {
        return m_fixture.savedSettings().dictionary(keys::settings).integer(keys::dpiX) == m_slider->value();
    }

  private:
    [[nodiscard]] QPoint placeOf(int step) const {
        const int first = 40;
        const int sweep = step % (2 * kSteps);
        return {first + (m_slider->width() - 2 * first) * std::min(sweep, 2 * kSteps - sweep) / kSteps, 8};
    }

    Series measure(int steps, const std::function<void()>& begin, const std::function<void(int)>& step,
        const std::function<void()>& end) {
        // A page is ten steps of 25, so that as many pages as steps would run off the scale.
        m_slider->setPageStep(150);
        m_slider->setValue(100);
        test::turnWheel(*m_slider, 120); // into the tree, so that both begin at the same end
        m_slider->setSliderPosition(100);
        QCoreApplication::processEvents();
        m_calls.renames = m_calls.syncs = 0;
        begin();
        Series series;
        for (int i = 1; i <= steps; ++i) {
            const double frame = timeOf([&] { step(i); });
            series.longest = std::max(series.longest, frame);
            series.late += frame > kFrame * 1000 ? 1 : 0;
            series.total += frame;
        }
        series.end = timeOf(end);
        series.total += series.end;
        series.saves = m_calls.renames;
        series.syncs = m_calls.syncs;
        return series;
    }

    /// The action, and the drawing that it leads to.
    static double timeOf(const std::function<void()>& action) {
        const auto start = Clock::now();
        action();
        QCoreApplication::processEvents();
        return Microseconds(Clock::now() - start).count();
    }

    CountingCalls m_calls;
    test::PaneFixture m_fixture{{.files = m_calls}};
    KyvarQuorviSlider* m_slider = nullptr;
};

/// The same bytes written and renamed, with or without waiting for the disk.
class Floor {
  public:
    explicit Floor(const std::filesystem::path& settings) : m_folder(settings.parent_path()) {
        std::ifstream file(settings, std::ios::binary);
        m_bytes.assign(std::istreambuf_iterator<char>(file), {});
    }
    /// The longest of as many writes as a drag has steps, in µs.
    [[nodiscard]] double longest(bool synced) const {
        double longest = 0;
        for (int i = 0; i < kSteps; ++i) {
            const auto start = Clock::now();
            write(synced);
            longest = std::max(longest, Microseconds(Clock::now() - start).count());
        }
        return longest;
    }

  private:
    void write(bool synced) const {
        const int folder = open(m_folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        const int file = openat(folder, "floor.new", O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
        const bool written = ::write(file, m_bytes.data(), m_bytes.size()) == ssize_t(m_bytes.size()) &&
                             (!synced || fsync(file) == 0) && close(file) == 0 &&
                             renameat(folder, "floor.new", folder, "floor") == 0 &&
                             (!synced || fsync(folder) == 0);
        close(folder);
        if (!written)
            qFatal("the floor's file cannot be written");
    }

    std::filesystem::path m_folder;
    std::string m_bytes;
};

struct Results {
    std::vector<double> longest, base, syncedBase, total, end;

    void add(const Series& series, const Floor& floor) {
        longest.push_back(series.longest / 1000);
        total.push_back(series.total / 1000);
        end.push_back(series.end / 1000);
        base.push_back(floor.longest(false) / 1000);
    }
    [[nodiscard]] Figure ratio() const { return figureOf(Pairs{longest, base}.ratios()); }
};

void require(const Series& series, int syncs) {
    if (series.saves != kSteps || series.syncs != syncs)
        qFatal("%d saves and %d waits for the disk", series.saves, series.syncs);
}

/// No frame may be late, and the last value must be in the file.
void dragLong(Panel& panel, bool quick) {
    std::vector<double> longest;
    std::vector<double> late;
    for (int i = 0; i < (quick ? 1 : 5); ++i) {
        const Series drag = panel.drag(kLongDragSteps);
        if (!panel.isSaved() || drag.saves < kLongDragSteps)
            qFatal("the drag is not in the file");
        longest.push_back(drag.longest / 1000);
        late.push_back(drag.late);
    }
    printRow("longest frame of a drag of " + std::to_string(kLongDragSteps) + " steps", figureOf(longest),
        "ms", kFrame);
    printRow("  frames above that", figureOf(late), "", 0.0);
}

void run(bool quick) {
    Panel panel;
    (void)panel.drag();
    const Floor floor(panel.file());
    Results gathered;
    Results single;
    std::vector<double> durable;
    for (int round = 0; round < (quick ? 3 : 31); ++round) {
        const Series drag = panel.drag();
        require(drag, 2);
        gathered.add(drag, floor);
        const Series steps = panel.singleSteps();
        require(steps, 2 * kSteps);
        single.add(steps, floor);
        durable.push_back(floor.longest(true) / 1000);
    }
    const std::string title = "longest frame of a drag of " + std::to_string(kSteps) + " steps";
    printRow(title + " / longest bare write and rename", gathered.ratio(), "x", std::nullopt);
    printRow("  … with a wait for the disk at each step", single.ratio(), "x", std::nullopt);
    printRow("  that frame", figureOf(gathered.longest), "ms", kFrame);
    printRow("  … with a wait for the disk at each step", figureOf(single.longest), "ms", std::nullopt);
    printRow("  the longest bare write and rename", figureOf(gathered.base), "ms", std::nullopt);
    printRow("  … with a wait for the disk", figureOf(durable), "ms", std::nullopt);
    printRow("  the end of the drag, with its one wait", figureOf(gathered.end), "ms", std::nullopt);
    printRow("  the whole drag / with a wait at each step",
        figureOf(Pairs{gathered.total, single.total}.ratios()), "x", std::nullopt);
    printRow("  saves of a drag", figureOf({double(kSteps)}), "", std::nullopt);
    printRow("  waits for the disk / of as many single steps", figureOf({2.0 / (2.0 * kSteps)}), "x",
        std::nullopt);
    dragLong(panel, quick);
}

} // namespace
} // namespace quorvi::bench

int main(int argc, char** argv) {
    const quorvi::test::PrivateBus bus;
    QApplication application(argc, argv);
    quorvi::bench::run(quorvi::bench::isQuick(argc, argv));
}
