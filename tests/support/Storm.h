// A program on the bus that floods another one with device lists and malformed events.
#pragma once

#include <cstdint>
#include <memory>
#include <random>
#include <string>

#include "events/EventTypes.h"

struct sd_bus;
struct sd_bus_message;

namespace quorvi::test {

/// The number in QUORVI_STORM, or that of the short form: how many device lists, and how many malformed
/// events, a storm is made of.
[[nodiscard]] int stormSize();

class Storm {
  public:
    /// Sets the target. The same seed sends the same storm.
    explicit Storm(const ProcessSerialNumber& target, std::uint32_t seed = 1);

    /// A well-formed list of that many devices, of which 8 have an entry at most.
    void sendDeviceList(std::uint16_t count);
    /// One of the malformed events: codes of other lengths, parameters of another type or size, lists of
    /// another size, other signatures, missing objects and members, unrequested replies.
    void sendMalformed();
    /// A device list whose bytes are that many; the count is said to be 1.
    void sendListOfSize(std::size_t bytes);
    /// An answer to the call with that number, which the target never made of us: an error, or an empty
    /// reply.
    void sendUnwantedReply(std::uint64_t number, bool isError);
    /// A command, without wanting a reply.
    void sendCommand(FourCharCode message, std::int32_t parameter);

    /// Waits until the bus has taken everything sent so far: the target receives it before any answer to its
    /// own later calls.
    void awaitPassedOn();
    /// Waits until the target has received everything sent so far. Returns false if it does not answer.
    [[nodiscard]] bool isTakenIn();

  private:
    struct Close {
        void operator()(sd_bus* bus) const;
    };
    using Message = std::shared_ptr<sd_bus_message>;
    using Kind = void (Storm::*)();

    [[nodiscard]] Message newCall(const char* path, const char* interface, const char* member) const;
    [[nodiscard]] Message newSend() const;
    void send(const Message& message);
    void drain();
    [[nodiscard]] std::size_t random(std::size_t below);

    void sendWrongCodes();
    void sendWrongParameter();
    void sendWrongSize();
    void sendManyParameters();
    void sendWrongSignature();
    void sendToNobody();
    void sendUnwantedReplyToAnyCall();
    void sendForgedSignal();
    void sendUnknownCommand();

    std::unique_ptr<sd_bus, Close> m_bus;
    std::string m_target;
    std::mt19937 m_random;
    int m_sent = 0;
};

} // namespace quorvi::test
