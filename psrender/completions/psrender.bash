# Completes psrender in bash.
_psrender() {
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} words
    COMPREPLY=()
    case $previous in
        --paper) words='A3 A4 A5 Letter Legal' ;;
        --opacity) words='blend white' ;;
        --jog) words='0 1 2 3' ;;
        --margin | --preview-dpi | --max-dpi | --max-pixels | --max-shapes | --copies | --tray | --media-color)
            return ;;
        *)
            if [[ $current == -* ]]; then
                words='--help --version --output --preview --preview-dpi --keep-going --max-shapes --opacity
                       --quiet --verbose --paper --fit --landscape --margin --max-dpi --max-pixels
                       --duplex --copies --tray --media-color --jog'
            fi ;;
    esac
    if [[ $words ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$words" -- "$current")
    else
        mapfile -t COMPREPLY < <(compgen -f -- "$current")
        compopt -o filenames 2>/dev/null
    fi
}
complete -F _psrender psrender
