# Completes psrender in bash.
_psrender() {
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} words
    COMPREPLY=()
    case $previous in
        --paper) words='A0 A1 A2 A3 A4 A5 A6 A7 A8 A9 A10 B0 B1 B2 B3 B4 B5 B6 B7 B8 B9 B10 Letter Legal Tabloid Ledger Executive Statement Folio ANSI-C ANSI-D ANSI-E Arch-A Arch-B Arch-C Arch-D Arch-E' ;;
        --opacity) words='blend white' ;;
        --format) words='ps eps pdf' ;;
        --embed-fonts) words='all subset' ;;
        --colors) words='rgb gray cmyk' ;;
        --duplex) words='long short off' ;;
        --jog) words='0 1 2 3' ;;
        --margin | --width | --height | --scale | --dpi | --background | --jobs | --title | --author | --preview-dpi | --max-dpi | --raster-dpi | --max-pixels | --max-shapes | --copies | --tray | --media-color | --zoom | --x-zoom | --y-zoom | --dpi-x | --dpi-y | --background-color | --pages | --export-id | --language | --accept-language | --page-width | --page-height | --left | --top)
            return ;;
        *)
            if [[ $current == -* ]]; then
                words='--help --version --output --preview --preview-dpi --keep-going --max-shapes --opacity
                       --quiet --verbose --paper --fit --landscape --margin --max-dpi --raster-dpi --no-raster --max-pixels
                       --duplex --copies --tray --media-color --jog
                       --config --format --output-dir --jobs --skip-existing --join --title --author --embed-fonts --colors --icc --strict --width --height --keep-aspect-ratio --scale --zoom --dpi --background
                       --x-zoom --y-zoom --dpi-x --dpi-y --background-color --pages --export-id --stylesheet
                       --language --accept-language --unlimited --page-width --page-height --left --top --info --json'
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
