#include "editors/assignment/FunctionSymbols.h"

#include <algorithm>
#include <array>

#include "model/CommandCodes.h"

namespace quorvi {

namespace {

struct FunctionSymbol {
    int command;
    Symbol symbol;
};

// In the order of model/Commands.cpp, which says what the codes mean.
constexpr std::array kSymbols{
    FunctionSymbol{commands::click, Symbol::ClickLeft},
    FunctionSymbol{2, Symbol::ClickRight},
    FunctionSymbol{3, Symbol::ClickMiddle},
    FunctionSymbol{4, Symbol::ClickLeft},
    FunctionSymbol{5, Symbol::GoPrevious},
    FunctionSymbol{6, Symbol::GoNext},

    FunctionSymbol{8, Symbol::GoUp},
    FunctionSymbol{9, Symbol::GoDown},
    FunctionSymbol{10, Symbol::GoPrevious},
    FunctionSymbol{11, Symbol::GoNext},

    FunctionSymbol{16, Symbol::Speed},
    FunctionSymbol{17, Symbol::Speed},
    FunctionSymbol{18, Symbol::Speed},
    FunctionSymbol{19, Symbol::Speed},

    FunctionSymbol{80, Symbol::PlayPause},
    FunctionSymbol{81, Symbol::SkipForward},
    FunctionSymbol{82, Symbol::SkipBackward},
    FunctionSymbol{83, Symbol::Halt},
    FunctionSymbol{84, Symbol::VolumeUp},
    FunctionSymbol{85, Symbol::VolumeDown},
    FunctionSymbol{86, Symbol::Mute},

    FunctionSymbol{96, Symbol::GoUp},
    FunctionSymbol{97, Symbol::GoDown},
    FunctionSymbol{98, Symbol::GoTop},
    FunctionSymbol{99, Symbol::GoBottom},
    FunctionSymbol{100, Symbol::Tabs},
    FunctionSymbol{101, Symbol::Tabs},
    FunctionSymbol{102, Symbol::ZoomIn},
    FunctionSymbol{103, Symbol::ZoomOut},

    FunctionSymbol{112, Symbol::Copy},
    FunctionSymbol{113, Symbol::Cut},
    FunctionSymbol{114, Symbol::Paste},
    FunctionSymbol{115, Symbol::Undo},
    FunctionSymbol{116, Symbol::Redo},
    FunctionSymbol{117, Symbol::SelectAll},

    FunctionSymbol{128, Symbol::Desktop},
    FunctionSymbol{129, Symbol::Windows},
    FunctionSymbol{130, Symbol::Close},
    FunctionSymbol{131, Symbol::Screenshot},
    FunctionSymbol{132, Symbol::LockScreen},

    FunctionSymbol{commands::singleKey, Symbol::Keyboard},
    FunctionSymbol{commands::runMacro, Symbol::Macro},
    FunctionSymbol{commands::switchToProfile, Symbol::Profile},
    FunctionSymbol{32, Symbol::Profile},
    FunctionSymbol{33, Symbol::Profile},
};

} // namespace

std::optional<Symbol> symbolOfFunction(int command) {
    const auto* found = std::ranges::find(kSymbols, command, &FunctionSymbol::command);
    return found == kSymbols.end() ? std::nullopt : std::optional(found->symbol);
}

} // namespace quorvi
