// The bus interface that reports the application in front, described once for the helper and its clients.
// com.kyvar.Front1.xml describes it for other programs.
#pragma once

namespace quorvi::frontinterface {

constexpr char kPath[] = "/com/kyvar/Helper";
constexpr char kInterface[] = "com.kyvar.Front1";

/// Property: its displayed name; empty before the first.
constexpr char kApplication[] = "FrontApplication";
constexpr char kSource[] = "FrontSource";            ///< property: the source; empty if there is none
constexpr char kDesktop[] = "Desktop";               ///< property: the desktop's name; may be empty
constexpr char kGnomeExtension[] = "GnomeExtension"; ///< property: see FrontState
constexpr char kTextSignature[] = "s";

constexpr char kEnableGnomeExtension[] = "EnableGnomeExtension"; ///< no arguments, no result

} // namespace quorvi::frontinterface
