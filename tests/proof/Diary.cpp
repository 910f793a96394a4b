#include "proof/Diary.h"

#include <array>
#include <csignal>
#include <cstring>

#include <execinfo.h>
#include <pthread.h>
#include <unistd.h>

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/common_interface_defs.h>
#endif

namespace quorvi::test {

namespace {

constexpr std::size_t kNotes = 60;
constexpr std::size_t kLongestNote = 200;
constexpr auto kLookEvery = std::chrono::milliseconds(100);

// Plain memory: whoever prints it may be a signal handler, or the sanitizer at its last gasp.
using Note = std::array<char, kLongestNote>;
Note gHowToRepeat;
std::array<Note, kNotes> gNotes;
std::atomic<std::size_t> gNoteCount = 0;
pthread_t gMainThread;

void keep(Note& note, const QString& text) {
    const QByteArray bytes = text.toUtf8().left(int(kLongestNote) - 2) + '\n';
    std::memcpy(note.data(), bytes.constData(), std::size_t(bytes.size()) + 1);
}

void put(const char* text) {
    static_cast<void>(!::write(STDERR_FILENO, text, std::strlen(text)));
}

void printStack() {
#ifdef __SANITIZE_ADDRESS__
    __sanitizer_print_stack_trace();
#else
    std::array<void*, 64> frames{};
    ::backtrace_symbols_fd(frames.data(), ::backtrace(frames.data(), int(frames.size())), STDERR_FILENO);
#endif
}

void dieOf(int signal) {
    Diary::print();
    printStack();
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

std::int64_t now() {
    return std::chrono::steady_clock::now().time_since_epoch().count();
}

} // namespace

Diary::Diary(const QString& howToRepeat, std::chrono::seconds patience) : m_lastNote(now()) {
    gMainThread = ::pthread_self();
    keep(gHowToRepeat, howToRepeat);
    gNoteCount = 0;
#ifdef __SANITIZE_ADDRESS__
    __sanitizer_set_death_callback(&Diary::print);
    std::signal(SIGABRT, dieOf);
#else
    for (const int signal : {SIGABRT, SIGSEGV, SIGBUS, SIGFPE, SIGILL})
        std::signal(signal, dieOf);
#endif
    if (const QByteArray all = qgetenv("QUORVI_MONKEY_DIARY"); !all.isEmpty())
        m_all.reset(std::fopen(all.constData(), "w"));
    m_watchdog = std::thread([this, patience] { watch(patience); });
}

Diary::~Diary() {
    m_over = true;
    m_watchdog.join();
}

void Diary::note(int number, const QString& action) {
    keep(gNotes[gNoteCount % kNotes], QStringLiteral("%1 %2").arg(number).arg(action));
    if (m_all)
        std::fputs(gNotes[gNoteCount % kNotes].data(), m_all.get());
    ++gNoteCount;
    m_lastNote = now();
}

void Diary::print() {
    put(gHowToRepeat.data());
    const std::size_t count = gNoteCount;
    for (std::size_t index = count > kNotes ? count - kNotes : 0; index < count; ++index)
        put(gNotes[index % kNotes].data());
}

void Diary::watch(std::chrono::seconds patience) {
    const auto limit = std::chrono::duration_cast<std::chrono::steady_clock::duration>(patience).count();
    while (!m_over) {
        std::this_thread::sleep_for(kLookEvery);
        if (now() - m_lastNote < limit)
            continue;
        put("nothing more happens after the last of these:\n");
        ::pthread_kill(gMainThread, SIGABRT); // whose handler prints the stack that it stands in
        std::this_thread::sleep_for(patience);
        ::_exit(1);
    }
}

} // namespace quorvi::test
