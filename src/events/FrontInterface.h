// The bus interface that says which application is in front, described once for the helper that offers it and
// the programs that use it. com.kyvar.Front1.xml says the same for other programs.
#pragma once

namespace quorvi::frontinterface {

constexpr char kPath[] = "/com/kyvar/Helper";
constexpr char kInterface[] = "com.kyvar.Front1";

/// Property: its name as it is shown; empty before the first.
constexpr char kApplication[] = "FrontApplication";
constexpr char kSource[] = "FrontSource";            ///< property: who tells; empty when nobody does
constexpr char kDesktop[] = "Desktop";               ///< property: the desktop's name; may be empty
constexpr char kGnomeExtension[] = "GnomeExtension"; ///< property: see FrontState
constexpr char kTextSignature[] = "s";

constexpr char kEnableGnomeExtension[] = "EnableGnomeExtension"; ///< no arguments, no result

} // namespace quorvi::frontinterface
