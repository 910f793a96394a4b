// The verbs of quorvictl.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "tools/Outcome.h"

namespace quorvi::tools {

/// The arguments after the verb.
using Arguments = std::vector<std::string>;

/// The output format of a verb: lines, or one JSON object, whose members docs/man/quorvictl.1 lists. If the
/// verb is refused, the JSON object has an "error".
enum class Format : std::uint8_t { text, json };

// Settings files and records. Nothing is written unless all input is valid.

/// SETTINGS.plist RECORD.bin: writes the device's record of the settings.
[[nodiscard]] Outcome encode(const Arguments& arguments);
/// RECORD.bin SETTINGS.plist: puts the record's settings into the file, whose other keys stay.
[[nodiscard]] Outcome decode(const Arguments& arguments);
/// SETTINGS.plist: prints whether the panel and the device accept the settings.
[[nodiscard]] Outcome check(const Arguments& arguments, Format format);
/// FILE [SETTINGS.plist] [--check]: replaces the settings in the settings file, else the user's, with those
/// of FILE, another settings file or a backup of everything. Prints whether that changed anything; without a
/// difference, writes nothing and does not notify the helper. With --check, never does.
[[nodiscard]] Outcome apply(const Arguments& arguments, Format format);
/// SETTINGS.plist and options: prints the index of the profile bound to the application, or -1.
[[nodiscard]] Outcome match(const Arguments& arguments);

// Profiles and macros, by the rules of the panel's own lists. An open panel follows the change.

/// SETTINGS.plist: prints number, name and application of each profile, the current one marked.
[[nodiscard]] Outcome profiles(const Arguments& arguments, Format format);
/// SETTINGS.plist: prints identifier, number of steps and name of each macro.
[[nodiscard]] Outcome macros(const Arguments& arguments, Format format);
/// SETTINGS.plist FILE: adds the profile or macro in the file and prints its new name.
[[nodiscard]] Outcome importItem(const Arguments& arguments);
/// SETTINGS.plist profile NUMBER FILE, or SETTINGS.plist macro ID FILE: writes that item into the file. With
/// --with-macros at the end, also the macros that the profile runs.
[[nodiscard]] Outcome exportItem(const Arguments& arguments);

// Everything in one file, and the dated copies of the user's settings.

/// [SETTINGS.plist] FILE: writes all settings into the file. Without SETTINGS.plist, here and below, it uses
/// the user's own.
[[nodiscard]] Outcome backup(const Arguments& arguments);
/// [SETTINGS.plist] FILE: restores the settings from the file, and prints what was left out.
[[nodiscard]] Outcome restore(const Arguments& arguments);
/// Without arguments: prints number, date and reason of each copy, the newest first. show NUMBER: prints the
/// copy's profiles and macros, and the differences from the user's settings. restore [SETTINGS.plist] NUMBER:
/// restores the settings from the copy.
[[nodiscard]] Outcome history(const Arguments& arguments, Format format);

// The table of functions.

/// Prints the functions that inputs of the mouse can have, one a line: code, inputs, group and title, with a
/// tab between them and in the order of the menus.
[[nodiscard]] Outcome commands(const Arguments& arguments, Format format);

// Keys. Numbers are decimal, or hexadecimal after 0x.

/// CODE [MASK]: prints the name of a virtual key code (0 to 255) with the modifiers of the modifier word (0
/// to 0xFFFF), in the present keyboard layout: the display server's, else the machine's configured one.
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

// This computer's mice, as listed by the helper.

/// Prints id, state, connection, DPI and name of each, with tabs between them, one a line; "-" for unknown
/// values.
[[nodiscard]] Outcome mice(const Arguments& arguments, Format format);
/// MOUSE, by its id or model: makes it, and all mice of its model, follow the settings.
[[nodiscard]] Outcome use(const Arguments& arguments);
/// MOUSE: makes it a plain one again.
[[nodiscard]] Outcome forget(const Arguments& arguments);

// Operates the simulated mouse.

/// INPUT (1 to 9): presses the button, or turns the wheel by a notch (8 away, 9 back).
[[nodiscard]] Outcome press(const Arguments& arguments);
/// INPUT: releases the button.
[[nodiscard]] Outcome release(const Arguments& arguments);
/// Prints the mouse's output until the process is ended: microseconds of the steady clock, type, code and
/// value of Linux input events with tabs between them, one a line. Returns kRefused when the helper ends.
[[nodiscard]] Outcome watch(const Arguments& arguments);

/// Runs the verb of the command line, which excludes the program's name.
[[nodiscard]] Outcome run(const Arguments& commandLine);

/// The text of --help, also printed below the reason for a wrong command line.
[[nodiscard]] std::string usage();

} // namespace quorvi::tools
