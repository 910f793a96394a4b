// The verbs of quorvictl.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "tools/Outcome.h"

namespace quorvi::tools {

/// What follows the verb on the command line.
using Arguments = std::vector<std::string>;

/// How a verb says what it has to say: in lines, or as one JSON object, whose members docs/man/quorvictl.1
/// lists. A script that asked for the latter gets an object with "error" when the verb is refused.
enum class Format : std::uint8_t { text, json };

// Settings files and records. Nothing is written unless all of the input is in order.

/// SETTINGS.plist RECORD.bin: writes the device's record of the settings.
[[nodiscard]] Outcome encode(const Arguments& arguments);
/// RECORD.bin SETTINGS.plist: puts the record's settings into the file, whose other keys stay.
[[nodiscard]] Outcome decode(const Arguments& arguments);
/// SETTINGS.plist: says whether the panel and the device take the settings.
[[nodiscard]] Outcome check(const Arguments& arguments, Format format);
/// FILE [SETTINGS.plist] [--check]: makes the settings file, else the user's, hold the settings of the file,
/// which is another settings file or a backup of everything. Prints whether that changed anything; when
/// nothing differs, nothing is written and nobody told. With --check nothing is in any case.
[[nodiscard]] Outcome apply(const Arguments& arguments, Format format);
/// SETTINGS.plist and options: prints the index of the profile bound to the application, or -1.
[[nodiscard]] Outcome match(const Arguments& arguments);

// Profiles and macros, by the rules of the panel's own lists. A panel that is open does not see the change
// before the mouse is plugged in again.

/// SETTINGS.plist: prints number, name and application of each profile, the current one marked.
[[nodiscard]] Outcome profiles(const Arguments& arguments, Format format);
/// SETTINGS.plist: prints identifier, number of steps and name of each macro.
[[nodiscard]] Outcome macros(const Arguments& arguments, Format format);
/// SETTINGS.plist FILE: adds the profile or macro in the file and prints the name that it got.
[[nodiscard]] Outcome importItem(const Arguments& arguments);
/// SETTINGS.plist profile NUMBER FILE, or SETTINGS.plist macro ID FILE: writes the one into the file. With
/// --with-macros behind it a profile and the macros that it runs.
[[nodiscard]] Outcome exportItem(const Arguments& arguments);

// Everything in one file, and the dated copies of the user's settings.

/// [SETTINGS.plist] FILE: writes all settings into the file. Without the first, here and below, they are the
/// user's own.
[[nodiscard]] Outcome backup(const Arguments& arguments);
/// [SETTINGS.plist] FILE: makes the settings what the file holds, and says what was left out.
[[nodiscard]] Outcome restore(const Arguments& arguments);
/// Nothing: prints number, date and reason of each copy, the newest first. show NUMBER: prints the profiles
/// and macros in it, and what is different in the user's settings. restore [SETTINGS.plist] NUMBER: makes
/// the settings what it holds.
[[nodiscard]] Outcome history(const Arguments& arguments, Format format);

// The table of functions.

/// Prints the functions that inputs of the mouse can have, one a line: code, inputs, group and title, with a
/// tab between them and in the order of the menus.
[[nodiscard]] Outcome commands(const Arguments& arguments, Format format);

// Keys. Numbers are decimal or hexadecimal behind 0x.

/// CODE [MASK]: prints the name of a virtual key code (0 to 255) with the modifiers of the modifier word (0
/// to 0xFFFF), on the keyboard layout in use: of the display server, else as this machine is configured.
[[nodiscard]] Outcome keyName(const Arguments& arguments);
/// USAGE: prints the virtual key code of a USB keyboard usage; 255 for none.
[[nodiscard]] Outcome usbToAdb(const Arguments& arguments);
/// CODE: prints the USB keyboard usage of a virtual key code; 0 for none.
[[nodiscard]] Outcome adbToUsb(const Arguments& arguments);

// The running helper.

/// Prints the connected devices, one a line.
[[nodiscard]] Outcome devices(const Arguments& arguments, Format format);
[[nodiscard]] Outcome attach(const Arguments& arguments);
[[nodiscard]] Outcome detach(const Arguments& arguments);

// The mice of this computer, as the helper knows them.

/// Prints id, state, connection, DPI and name of each, with tabs between them, one a line; "-" for what is
/// not known.
[[nodiscard]] Outcome mice(const Arguments& arguments, Format format);
/// MOUSE, by its id or model: has it, and all of its model, do what the settings say.
[[nodiscard]] Outcome use(const Arguments& arguments);
/// MOUSE: makes it a plain one again.
[[nodiscard]] Outcome forget(const Arguments& arguments);

// The simulated mouse by hand.

/// INPUT (1 to 9): presses the button, or turns the wheel by a notch (8 away, 9 back).
[[nodiscard]] Outcome press(const Arguments& arguments);
/// INPUT: releases the button.
[[nodiscard]] Outcome release(const Arguments& arguments);
/// Prints what the mouse sends until it is ended: microseconds of the steady clock, type, code and value of
/// Linux input events with tabs between them, one a line. Refused when the helper ends.
[[nodiscard]] Outcome watch(const Arguments& arguments);

/// Runs the verb that the command line names; what follows the program's own name.
[[nodiscard]] Outcome run(const Arguments& commandLine);

/// What --help prints, and what stands below the reason when the command line is wrong.
[[nodiscard]] std::string usage();

} // namespace quorvi::tools
