# zsh -f zsh_completions.zsh FOLDER LINE: prints what zsh offers at the end of LINE, one a line, with
# the completion functions of FOLDER. The completion runs in a terminal of its own, and what it
# would add is told instead of shown.
zmodload zsh/zpty
zpty shell zsh -f -i
zpty -w shell "PROMPT= RPROMPT= ; fpath=(${(q)1} \$fpath); autoload -Uz compinit; compinit -D -u"
zpty -w shell 'compadd() {
  [[ ${@[(i)-(O|A|D)]} -le ${#@} ]] && { builtin compadd "$@"; return }
  typeset -a told
  builtin compadd -O told "$@"
  builtin print -r -- "<offer>"${^told}"</offer>"
  builtin compadd "$@"
}
tell() { setopt localoptions noautolist; zle complete-word; builtin print "<end>" }
zle -N tell; bindkey "^I" tell; print "<re""ady>"'
zpty -r -m shell line '*<ready>*'
zpty -w -n shell "$2"$'\t'
zpty -r -m shell line '*<end>*'
print -r -- "$line" | grep -o '<offer>[^<]*</offer>' | sed 's/<offer>//; s,</offer>,,'
zpty -d shell
