// Repetitions of a held key that can be told from further presses of it.
#pragma once

namespace quorvi {

/// An X server repeats a held key as releases and presses. Qt tells these pairs from the user's own when the
/// press is already there as it looks at the release; on a busy machine it comes later. While an object of
/// this class exists, the server tells them apart for Qt's connection: it repeats presses alone, and the
/// release comes when the key is let go. Qt marks none of them as repeated then, so that whoever asks for
/// this has to know which keys are held.
///
/// The first object switches it on and the last one off. Does nothing on other platforms, and on a server
/// without the X keyboard extension.
class DetectableAutoRepeat {
  public:
    DetectableAutoRepeat();
    ~DetectableAutoRepeat();
    DetectableAutoRepeat(const DetectableAutoRepeat&) = delete;
    DetectableAutoRepeat& operator=(const DetectableAutoRepeat&) = delete;
};

} // namespace quorvi
