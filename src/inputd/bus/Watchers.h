// The connections that want to be told of their users' mice.
#pragma once

#include <memory>
#include <vector>

#include "inputd/UsedMice.h"
#include "platform/events/SdBus.h"

namespace quorvi::inputd {

class Watchers {
  public:
    static constexpr std::size_t most = 16;

    explicit Watchers(sd_bus* bus) : m_bus(bus) {}
    Watchers(const Watchers&) = delete;
    Watchers& operator=(const Watchers&) = delete;

    /// Until it leaves the bus. False when there are too many.
    [[nodiscard]] bool add(const char* connection, uid_t user, bool inputs);

    /// Tells those of its owner alone: nobody learns what another one presses.
    void tellStatus(const UsedMouse& mouse, const char* state) const;
    void tellInput(const UsedMouse& mouse, std::uint8_t input, bool pressed) const;
    /// Somebody wants to know of inputs.
    [[nodiscard]] bool wantInputs() const;

  private:
    struct TrackReleaser {
        void operator()(sd_bus_track* track) const { sd_bus_track_unref(track); }
    };
    struct Watcher {
        Watchers* owner;
        std::string connection;
        uid_t user;
        bool inputs;
        std::unique_ptr<sd_bus_track, TrackReleaser> track;
    };
    static int left(sd_bus_track* track, void* watcher);

    sd_bus* m_bus;
    std::vector<std::unique_ptr<Watcher>> m_watchers;
};

/// The name of a mouse's state in InputdInterface.h.
[[nodiscard]] const char* nameOf(MouseState state);

/// Appends state, profile, stage, DPI and pressed inputs. False when there is no memory.
[[nodiscard]] bool appendStatus(sd_bus_message* message, const UsedMouse& mouse, const char* state);

} // namespace quorvi::inputd
