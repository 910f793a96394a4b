# Prints what zsh offers for a command line, one a line: zsh -f completions.zsh FOLDER-OF-_quorvictl LINE.
# zsh completes nowhere but in its line editor, so one runs in a terminal of its own. What is added to the matches is
# printed there; completions also ask for matches that are only put into an array.
emulate -L zsh
zmodload zsh/zpty
zpty inner zsh -f -i
zpty -w inner "PS1= PS2=; unsetopt zle_bracketed_paste; stty -echo; fpath=(${(q)1} \$fpath); autoload -Uz compinit
compinit -u -d ${(q)1}/../dump
compadd() {
    [[ \${@[1,(i)(-|--)]} == *-(O|A|D)\ * ]] && { builtin compadd \"\$@\"; return }
    local -a matches; builtin compadd -A matches \"\$@\"
    local match; for match in \$matches; do print -r -- OFFERED:\$match; done
}
offer() { comppostfuncs=(); _main_complete; compstate[insert]= compstate[list]= ; print -- ENDED }
zle -C offer complete-word offer
bindkey '^I' offer
print -- STA''RTED"
zpty -r inner ready '*STARTED*'
zpty -w -n inner "$2"$'\t'
zpty -r inner offered '*ENDED*'
zpty -d inner
print -l -- ${${(M)${(f)offered//$'\r'/}:#*OFFERED:*}#*OFFERED:}
