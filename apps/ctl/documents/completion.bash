# Completes the command line of vxsettingsctl in bash. Made from the program's own tables.

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

# Sets words to what blanks separate, up to the word of the cursor. Bash itself breaks words at "=", "@" and ":" too.
_vxsettingsctl_words() {
    local rest=$COMP_LINE piece trimmed i
    words=()
    for ((i = 0; i <= COMP_CWORD; ++i)); do
        piece=${COMP_WORDS[i]}
        trimmed=${rest#"${rest%%[![:space:]]*}"}
        if ((i == 0)) || [[ $trimmed != "$rest" ]]; then
            words+=("$piece")
        else
            words[-1]+=$piece
        fi
        rest=${trimmed#"$piece"}
    done
}

_vxsettingsctl_offer_files() {
    compopt -o filenames
    local name
    while IFS= read -r name; do
        COMPREPLY+=("$name")
    done < <(compgen -f -- "$1")
}

# Offers the lines of the table whose word begins with $1. A description can be listed, but must not be inserted.
_vxsettingsctl_offer_table() {
    local line word
    while IFS= read -r line; do
        word=${line%%$'\t'*}
        if [[ -z $word || $word != "$1"* ]]; then
            continue
        fi
        if ((COMP_TYPE == 63)); then
            word+="  (${line#*$'\t'})"
        fi
        COMPREPLY+=("$word")
    done <<<"$table"
    if [[ ${COMPREPLY[0]} == *[=@] ]]; then
        compopt -o nospace
    fi
}

# Bash replaces only what stands behind the last character that breaks words.
_vxsettingsctl_cut_heads() {
    local break head
    for break in = @ :; do
        if [[ $COMP_WORDBREAKS == *$break* && $1 == *$break* ]]; then
            head=${1%"${1##*"$break"}"}
            COMPREPLY=("${COMPREPLY[@]#"$head"}")
        fi
    done
}

_vxsettingsctl() {
    local words table command='' kind=text most=0 arguments=0 from_input='' i
    COMPREPLY=()
    _vxsettingsctl_words
    local current=${words[-1]}
    for ((i = 1; i < ${#words[@]} - 1; ++i)); do
        case ${words[i]} in
        @VALUE_OPTIONS@) ((++i)) ;;
        --stdin) from_input=1 ;;
        -*) ;;
        *)
            if [[ $command ]]; then
                ((++arguments))
            else
                command=${words[i]}
                _vxsettingsctl_command "$command"
            fi
            ;;
        esac
    done

    case ${words[-2]} in
    @FILE_OPTIONS@)
        _vxsettingsctl_offer_files "${current#sqlite:}"
        return
        ;;
    @VALUE_OPTIONS@) return ;;
    esac

    if [[ $current == -* ]]; then
        _vxsettingsctl_table "options${command:+ $command}"
    elif [[ -z $command ]]; then
        _vxsettingsctl_table commands
    elif ((arguments >= most)); then
        return
    elif [[ $kind == file ]]; then
        _vxsettingsctl_offer_files "$current"
        return
    elif [[ $kind == assignment && $from_input ]]; then
        _vxsettingsctl_table stdin
    elif [[ $kind == assignment && $current == *=* ]]; then
        _vxsettingsctl_table "values ${current%%=*}"
        table=${table:+"${current%%=*}=${table//$'\n'/$'\n'"${current%%=*}="}"}
    else
        _vxsettingsctl_table "$kind"
    fi
    _vxsettingsctl_offer_table "$current"
    _vxsettingsctl_cut_heads "$current"
}

complete -F _vxsettingsctl vxsettingsctl
