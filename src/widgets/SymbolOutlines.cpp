#include "widgets/SymbolOutlines.h"

#include <QString>
#include <QtMath>

#include <array>
#include <cmath>

#include "widgets/SymbolIcon.h"

namespace quorvi {

namespace {

struct Drawn {
    Symbol symbol;
    const char* lines;
    const char* areas;
};

// The names beside them are those of freedesktop's icon naming or, where that has none, of Breeze.
constexpr std::array kOutlines{
    // input-mouse
    Drawn{Symbol::Mouse,
        "M8 1.5 A4.5 4.5 0 0 1 12.5 6 V10 A4.5 4.5 0 0 1 3.5 10 V6 A4.5 4.5 0 0 1 8 1.5 Z M8 4.5 V7", ""},
    // speedometer
    Drawn{Symbol::Speed, "M4.2 13 A6.2 6.2 0 1 1 11.8 13 M8 8.8 L11 5.2",
        "M6.7 9.3 A1.5 1.5 0 0 1 9.7 9.3 A1.5 "
        "1.5 0 0 1 6.7 9.3 Z"},
    // user-identity
    Drawn{Symbol::Profile,
        "M5 5 A3 3 0 0 1 11 5 A3 3 0 0 1 5 5 Z M2.5 14 C2.5 11.2 4.6 10.2 8 10.2 C11.4 10.2 13.5 11.2 13.5 "
        "14 "
        "Z",
        ""},
    // media-playlist-play
    Drawn{Symbol::Macro, "M2 3 H14 M2 7 H7.5 M2 11 H6.5", "M9 6.5 L14.5 10 L9 13.5 Z"},
    // configure
    Drawn{Symbol::Device,
        "M1.5 5 H8.5 M12.5 5 H14.5 M1.5 11 H3.5 M7.5 11 H14.5 M8.5 5 A2 2 0 0 1 12.5 5 A2 2 0 0 1 8.5 5 Z "
        "M3.5 11 A2 2 0 0 1 7.5 11 A2 2 0 0 1 3.5 11 Z",
        ""},
    // edit-undo
    Drawn{Symbol::Undo, "M6 2.5 L2.5 6 L6 9.5 M2.5 6 H9.5 A3.75 3.75 0 0 1 9.5 13.5 H6", ""},
    // edit-redo
    Drawn{Symbol::Redo, "M10 2.5 L13.5 6 L10 9.5 M13.5 6 H6.5 A3.75 3.75 0 0 0 6.5 13.5 H10", ""},
    // help-contents
    Drawn{Symbol::Help,
        "M1.8 8 A6.2 6.2 0 0 1 14.2 8 A6.2 6.2 0 0 1 1.8 8 Z M6 6.4 A2 2 0 1 1 8.6 8.3 C8.1 8.5 8 8.8 8 9.4",
        "M7.1 11.5 A0.9 0.9 0 0 1 8.9 11.5 A0.9 0.9 0 0 1 7.1 11.5 Z"},
    // media-playback-start
    Drawn{Symbol::Play, "", "M4 2.5 L13.5 8 L4 13.5 Z"},
    // media-playback-stop
    Drawn{Symbol::Stop, "", "M3.5 3.5 H12.5 V12.5 H3.5 Z"},
    // go-down, smaller
    Drawn{Symbol::Opens, "M4.5 6.2 L8 9.8 L11.5 6.2", ""},
    // list-add
    Drawn{Symbol::Add, "M8 3 V13 M3 8 H13", ""},
    // list-remove
    Drawn{Symbol::Remove, "M3 8 H13", ""},
    // overflow-menu
    Drawn{Symbol::More, "",
        "M6.6 3.5 A1.4 1.4 0 0 1 9.4 3.5 A1.4 1.4 0 0 1 6.6 3.5 Z M6.6 8 A1.4 1.4 0 0 1 9.4 8 A1.4 1.4 0 0 1 "
        "6.6 8 Z M6.6 12.5 A1.4 1.4 0 0 1 9.4 12.5 A1.4 1.4 0 0 1 6.6 12.5 Z"},
    // document-open
    Drawn{Symbol::Open, "M4 1.8 H9.5 L12.5 4.8 V14.2 H3.5 V1.8 H4 M9.2 2 V5.2 H12.5", ""},
    // a key with an arrow down, and up
    Drawn{Symbol::KeyDown, "M2.5 10.5 V14 H13.5 V10.5 M8 2 V10 M4.8 7 L8 10.2 L11.2 7", ""},
    Drawn{Symbol::KeyUp, "M2.5 10.5 V14 H13.5 V10.5 M8 11 V2.5 M4.8 5.5 L8 2.3 L11.2 5.5", ""},
    // media-record
    Drawn{Symbol::Record, "", "M3 8 A5 5 0 0 1 13 8 A5 5 0 0 1 3 8 Z"},
    // dialog-information
    Drawn{Symbol::Information, "M1.8 8 A6.2 6.2 0 0 1 14.2 8 A6.2 6.2 0 0 1 1.8 8 Z M8 7.2 V11.5",
        "M7.1 4.9 A0.9 0.9 0 0 1 8.9 4.9 A0.9 0.9 0 0 1 7.1 4.9 Z"},
    // dialog-warning
    Drawn{Symbol::Warning, "M8 2 L14.8 13.8 H1.2 Z M8 6 V9.7",
        "M7.1 11.8 A0.9 0.9 0 0 1 8.9 11.8 A0.9 0.9 0 0 1 7.1 11.8 Z"},
    // input-mouse-click-left
    Drawn{Symbol::ClickLeft,
        "M8 1.5 A4.5 4.5 0 0 1 12.5 6 V10 A4.5 4.5 0 0 1 3.5 10 V6 A4.5 4.5 0 0 1 8 1.5 Z M3.5 7 "
        "H12.5 M8 1.5 V7",
        "M7.6 2 V6.6 H3.9 V6 A4.1 4.1 0 0 1 7.6 2 Z"},
    // input-mouse-click-right
    Drawn{Symbol::ClickRight,
        "M8 1.5 A4.5 4.5 0 0 1 12.5 6 V10 A4.5 4.5 0 0 1 3.5 10 V6 A4.5 4.5 0 0 1 8 1.5 Z M3.5 7 "
        "H12.5 M8 1.5 V7",
        "M8.4 2 A4.1 4.1 0 0 1 12.1 6 V6.6 H8.4 Z"},
    // input-mouse-click-middle
    Drawn{Symbol::ClickMiddle,
        "M8 1.5 A4.5 4.5 0 0 1 12.5 6 V10 A4.5 4.5 0 0 1 3.5 10 V6 A4.5 4.5 0 0 1 8 1.5 Z",
        "M6.8 4.2 H9.2 V8.2 H6.8 Z"},
    // input-keyboard
    Drawn{Symbol::Keyboard, "M1.5 4 H14.5 V12 H1.5 Z M5 9.8 H11",
        "M3.5 6 H5 V7.5 H3.5 Z M6 6 H7.5 V7.5 H6 Z M8.5 6 H10 V7.5 H8.5 Z M11 6 H12.5 V7.5 H11 Z"},
    // go-up
    Drawn{Symbol::GoUp, "M3 10.5 L8 5.5 L13 10.5", ""},
    // go-down
    Drawn{Symbol::GoDown, "M3 5.5 L8 10.5 L13 5.5", ""},
    // go-previous
    Drawn{Symbol::GoPrevious, "M10.5 3 L5.5 8 L10.5 13", ""},
    // go-next
    Drawn{Symbol::GoNext, "M5.5 3 L10.5 8 L5.5 13", ""},
    // go-top
    Drawn{Symbol::GoTop, "M3 3 H13 M3 12 L8 7 L13 12", ""},
    // go-bottom
    Drawn{Symbol::GoBottom, "M3 13 H13 M3 4 L8 9 L13 4", ""},
    // zoom-in
    Drawn{Symbol::ZoomIn,
        "M2 6.5 A4.5 4.5 0 0 1 11 6.5 A4.5 4.5 0 0 1 2 6.5 Z M9.8 9.8 L14 14 M6.5 4.5 V8.5 M4.5 6.5 "
        "H8.5",
        ""},
    // zoom-out
    Drawn{Symbol::ZoomOut,
        "M2 6.5 A4.5 4.5 0 0 1 11 6.5 A4.5 4.5 0 0 1 2 6.5 Z M9.8 9.8 L14 14 M4.5 6.5 H8.5", ""},
    // edit-copy
    Drawn{Symbol::Copy, "M5.5 5 H13.5 V14 H5.5 Z M10.5 5 V2 H2.5 V11 H5.5", ""},
    // edit-cut
    Drawn{Symbol::Cut,
        "M2.5 12 A1.9 1.9 0 0 1 6.3 12 A1.9 1.9 0 0 1 2.5 12 Z M9.7 12 A1.9 1.9 0 0 1 13.5 12 A1.9 "
        "1.9 0 0 1 9.7 12 Z M5.5 10.5 L11.5 2 M10.5 10.5 L4.5 2",
        ""},
    // edit-paste
    Drawn{
        Symbol::Paste, "M5.5 3 H3 V14 H13 V3 H10.5 M5.5 8 H10.5 M5.5 11 H10.5", "M5.5 1.5 H10.5 V4.5 H5.5 Z"},
    // edit-select-all
    Drawn{Symbol::SelectAll,
        "M2 4.5 V2 H4.5 M7 2 H9 M11.5 2 H14 V4.5 M14 7 V9 M14 11.5 V14 H11.5 M9 14 H7 M4.5 14 H2 "
        "V11.5 M2 9 V7",
        "M5 5 H11 V11 H5 Z"},
    // media-playback-start with a pause beside it
    Drawn{Symbol::PlayPause, "", "M2 3 L9 8 L2 13 Z M10 3 H11.8 V13 H10 Z M13 3 H14.8 V13 H13 Z"},
    // media-skip-forward
    Drawn{Symbol::SkipForward, "", "M2.5 3 L8 8 L2.5 13 Z M8 3 L12 8 L8 13 Z M12 3 H13.8 V13 H12 Z"},
    // media-skip-backward
    Drawn{Symbol::SkipBackward, "", "M13.5 3 L8 8 L13.5 13 Z M8 3 L4 8 L8 13 Z M2.2 3 H4 V13 H2.2 Z"},
    // media-playback-stop
    Drawn{Symbol::Halt, "", "M3.5 3.5 H12.5 V12.5 H3.5 Z"},
    // audio-volume-high
    Drawn{Symbol::VolumeUp,
        "M2.5 6 H4.5 L8 3 V13 L4.5 10 H2.5 Z M10.2 5.5 A3.6 3.6 0 0 1 10.2 10.5 M12 3.5 A6.3 6.3 0 0 "
        "1 12 12.5",
        ""},
    // audio-volume-low
    Drawn{Symbol::VolumeDown, "M2.5 6 H4.5 L8 3 V13 L4.5 10 H2.5 Z M10.2 5.5 A3.6 3.6 0 0 1 10.2 10.5", ""},
    // audio-volume-muted
    Drawn{Symbol::Mute, "M2.5 6 H4.5 L8 3 V13 L4.5 10 H2.5 Z M10.5 6 L14.5 10 M14.5 6 L10.5 10", ""},
    // tab-new
    Drawn{Symbol::Tabs, "M1.5 13.5 H14.5 V6 H9 L7.5 3 H1.5 Z M1.5 6 H9", ""},
    // user-desktop
    Drawn{Symbol::Desktop, "M1.5 3 H14.5 V11 H1.5 Z M8 11 V13.5 M5 13.5 H11", ""},
    // view-grid, as windows before each other
    Drawn{Symbol::Windows, "M5.5 6 H14.5 V13.5 H5.5 Z M5.5 8.2 H14.5 M3.5 10 H1.5 V2.5 H10.5 V4", ""},
    // camera-photo
    Drawn{Symbol::Screenshot,
        "M1.5 5 H4.5 L5.8 3 H10.2 L11.5 5 H14.5 V13 H1.5 Z M5.5 9 A2.5 2.5 0 0 1 10.5 9 A2.5 2.5 0 0 "
        "1 5.5 9 Z",
        ""},
    // system-lock-screen
    Drawn{Symbol::LockScreen, "M1.5 3 H14.5 V11 H1.5 Z M5 13.5 H11 M6.7 6.6 V5.9 A1.3 1.3 0 0 1 9.3 5.9 V6.6",
        "M5.7 6.6 H10.3 V9.4 H5.7 Z"},
    // object-locked
    Drawn{Symbol::Locked, "M5 7 V5 A3 3 0 0 1 11 5 V7", "M3.5 7 H12.5 V14 H3.5 Z"},
    // window-close
    Drawn{Symbol::Close, "M4 4 L12 12 M12 4 L4 12", ""},
};

/// Reads one thing after the other.
class Reader {
  public:
    explicit Reader(const char* text) : m_next(text) {}

    /// The next command's letter; 0 at the end.
    char command() {
        skip();
        return *m_next == '\0' ? '\0' : *m_next++;
    }
    /// Not by the C library, which reads numbers by the user's habits.
    qreal number() {
        skip();
        const char* begin = m_next;
        while ((*m_next >= '0' && *m_next <= '9') || *m_next == '.' || *m_next == '-')
            ++m_next;
        return QByteArray::fromRawData(begin, int(m_next - begin)).toDouble();
    }
    QPointF point() {
        const qreal x = number();
        return {x, number()};
    }

  private:
    void skip() {
        while (*m_next == ' ' || *m_next == ',')
            ++m_next;
    }

    const char* m_next;
};

/// Along a circle of that radius; the flags are those of SVG.
void arcTo(QPainterPath& path, qreal radius, bool large, bool clockwise, QPointF end) {
    const QPointF start = path.currentPosition();
    const QPointF half = (end - start) / 2;
    const qreal distance = std::hypot(half.x(), half.y());
    const qreal r = std::max(radius, distance);
    // The middle stands beside the chord's own, to the one side or the other.
    const qreal aside = std::sqrt(r * r - distance * distance) / distance;
    const QPointF across(-half.y(), half.x());
    const QPointF middle = start + half + (large == clockwise ? -aside : aside) * across;
    const auto angle = [&](QPointF p) {
        return qRadiansToDegrees(std::atan2(middle.y() - p.y(), p.x() - middle.x()));
    };
    qreal sweep = angle(end) - angle(start);
    if (clockwise && sweep >= 0)
        sweep -= 360;
    else if (!clockwise && sweep <= 0)
        sweep += 360;
    path.arcTo(QRectF(middle - QPointF(r, r), QSizeF(2 * r, 2 * r)), angle(start), sweep);
}

void readArc(QPainterPath& path, Reader& reader) {
    const qreal radius = reader.number();
    (void)reader.number(); // the other radius, which is the same
    (void)reader.number(); // how the ellipse is turned
    const bool large = reader.number() != 0;
    const bool clockwise = reader.number() != 0;
    arcTo(path, radius, large, clockwise, reader.point());
}

void readCommand(QPainterPath& path, char command, Reader& reader) {
    switch (command) {
    case 'M':
        path.moveTo(reader.point());
        break;
    case 'L':
        path.lineTo(reader.point());
        break;
    case 'H':
        path.lineTo(reader.number(), path.currentPosition().y());
        break;
    case 'V':
        path.lineTo(path.currentPosition().x(), reader.number());
        break;
    case 'C': {
        const QPointF first = reader.point();
        const QPointF second = reader.point();
        path.cubicTo(first, second, reader.point());
        break;
    }
    case 'A':
        readArc(path, reader);
        break;
    case 'Z':
        path.closeSubpath();
        break;
    default:
        Q_ASSERT(false);
    }
}

} // namespace

QPainterPath pathFrom(const char* notation) {
    QPainterPath path;
    Reader reader(notation);
    while (const char command = reader.command())
        readCommand(path, command, reader);
    return path;
}

SymbolOutline outlineOf(Symbol symbol) {
    for (const Drawn& drawn : kOutlines)
        if (drawn.symbol == symbol)
            return {.lines = pathFrom(drawn.lines), .areas = pathFrom(drawn.areas)};
    return {};
}

} // namespace quorvi
