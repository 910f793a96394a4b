// Makes repeats of a held key distinguishable from new presses.
#pragma once

namespace quorvi {

/// An X server repeats a held key as releases and presses. Qt recognises such a pair only if the press has
/// already arrived when it handles the release; on a busy machine it arrives later. While an object of this
/// class exists, the server repeats only presses on Qt's connection, and sends the release when the key is
/// released. Qt then marks none of them as repeats, so the user of this class must track the held keys.
///
/// The first object turns it on and the last one off. Does nothing on other platforms, and on a server
/// without the X keyboard extension.
class DetectableAutoRepeat {
  public:
    DetectableAutoRepeat();
    ~DetectableAutoRepeat();
    DetectableAutoRepeat(const DetectableAutoRepeat&) = delete;
    DetectableAutoRepeat& operator=(const DetectableAutoRepeat&) = delete;
};

} // namespace quorvi
