#compdef vxsettingsctl
# Completes the command line of vxsettingsctl in zsh. Made from the program's own tables.

# Sets table to the lines of that name, each a word, a tab and its description.
_vxsettingsctl_table() {
    case $1 in
@TABLES@
    *) table= ;;
    esac
}

# Sets kind and most to the kind of a command's arguments and how many there can be.
_vxsettingsctl_command() {
    case $1 in
@COMMANDS@
    *) kind=text most=0 ;;
    esac
}

# Offers the lines of the table; $1 says what they are, what follows is for compadd.
_vxsettingsctl_offer_table() {
    local -a entries
    entries=(${(f)table})
    entries=("${(@)entries//:/\\:}")
    entries=("${(@)entries/$'\t'/:}")
    _describe -V "$1" entries "${@:2}"
}

_vxsettingsctl() {
    local table command kind=text from_input
    local -i most arguments i
    for ((i = 2; i < CURRENT; ++i)); do
        case $words[i] in
        @VALUE_OPTIONS@) ((++i)) ;;
        --stdin) from_input=1 ;;
        -*) ;;
        *)
            if [[ -n $command ]]; then
                ((++arguments))
            else
                command=$words[i]
                _vxsettingsctl_command $command
            fi
            ;;
        esac
    done

    case $words[CURRENT-1] in
    @FILE_OPTIONS@)
        compset -P 'sqlite:'
        _files
        return
        ;;
    @VALUE_OPTIONS@) return 1 ;;
    esac

    if [[ $PREFIX == -* ]]; then
        _vxsettingsctl_table "options${command:+ $command}"
        _vxsettingsctl_offer_table option
    elif [[ -z $command ]]; then
        _vxsettingsctl_table commands
        _vxsettingsctl_offer_table command
    elif ((arguments >= most)); then
        return 1
    elif [[ $kind == file ]]; then
        _files
    elif [[ $kind == assignment && -n $from_input ]]; then
        _vxsettingsctl_table stdin
        _vxsettingsctl_offer_table setting
    elif [[ $kind == assignment && $PREFIX == *=* ]]; then
        _vxsettingsctl_table "values ${PREFIX%%=*}"
        compset -P 1 '*='
        _vxsettingsctl_offer_table value
    elif [[ $kind == assignment || $kind == revision ]]; then
        _vxsettingsctl_table $kind
        _vxsettingsctl_offer_table setting -S ''
    else
        _vxsettingsctl_table $kind
        _vxsettingsctl_offer_table $kind
    fi
}

_vxsettingsctl "$@"
