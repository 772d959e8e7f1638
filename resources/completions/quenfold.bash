# SPDX-License-Identifier: Apache-2.0
# Completion of quenfold's command line for bash.
_quenfold() {
  local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
  case $previous in
    --encoding) COMPREPLY=($(compgen -W "UTF-8 UTF-16 ISO-8859-1 ISO-8859-15 windows-1252 windows-1251 KOI8-R Shift_JIS EUC-JP GB18030 Big5 EUC-KR" -- "$current")); return ;;
    --jobs) return ;;
  esac
  if [[ $COMP_CWORD -eq 1 ]]; then
    COMPREPLY=($(compgen -W "--agent --list --clean --clipboard --version --help" -- "$current"))
  elif [[ ${COMP_WORDS[1]} == --list ]]; then
    COMPREPLY=($(compgen -W "--json" -- "$current"))
  elif [[ $current == -* ]]; then
    COMPREPLY=($(compgen -W "--encoding --in-place --jobs" -- "$current"))
  elif [[ ${COMP_WORDS[1]} == --cl* ]]; then
    local names
    names=$(quenfold --list 2>/dev/null | sed -n 's/^#\([^[:space:]]*\)\t.*/\1/p' | tr '[:upper:]' '[:lower:]')
    COMPREPLY=($(compgen -W "$names" -- "${current,,}"))
    [[ ${COMP_WORDS[1]} == --clean && $COMP_CWORD -gt 2 ]] && COMPREPLY+=($(compgen -f -- "$current"))
  fi
}
complete -o filenames -F _quenfold quenfold
