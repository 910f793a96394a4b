// The monkey's last actions, printed if the program crashes or hangs.
#pragma once

#include <QString>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <memory>
#include <thread>

namespace quorvi::test {

/// One in a process, made by its main thread.
class Diary {
  public:
    /// The line says how to do it all again. When nothing is noted for longer than the patience, the program
    /// ends with the last notes and the main thread's stack.
    Diary(const QString& howToRepeat, std::chrono::seconds patience);
    ~Diary();
    Diary(const Diary&) = delete;
    Diary& operator=(const Diary&) = delete;

    /// Writes down what is about to be done, beginning with its number.
    void note(int number, const QString& action);
    /// Prints the line and the last notes to the standard error output; safe in a signal handler.
    static void print();

  private:
    void watch(std::chrono::seconds patience);

    std::atomic<bool> m_over = false;
    std::atomic<std::int64_t> m_lastNote; ///< on the steady clock, in its own ticks
    struct Close {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };
    std::unique_ptr<std::FILE, Close>
        m_all; ///< gets every note; null unless QUORVI_MONKEY_DIARY names a file
    std::thread m_watchdog;
};

} // namespace quorvi::test
