# Completes the command line of vxsettingsctl in fish. Made from the program's own tables.

# Prints the lines of that name, each a word, a tab and its description.
function __vxsettingsctl_table
    switch "$argv"
@TABLES@
    end
end

# Prints the kind of a command's arguments and how many there can be.
function __vxsettingsctl_command
    switch "$argv"
@COMMANDS@
        case '*'
            echo text\n0
    end
end

function __vxsettingsctl
    set -l words (commandline --tokenize --cut-at-cursor --current-process)
    set -l current (commandline --cut-at-cursor --current-token)
    set -l command
    set -l kind text
    set -l most 0
    set -l arguments 0
    set -l value_of
    for word in $words[2..]
        if test -n "$value_of"
            set value_of
            continue
        end
        switch $word
            case @VALUE_OPTIONS@
                set value_of $word
            case '-*'
            case '*'
                if test -n "$command"
                    set arguments (math $arguments + 1)
                else
                    set command $word
                    __vxsettingsctl_command $command | read --line kind most
                end
        end
    end

    switch "$value_of"
        case @FILE_OPTIONS@
            __fish_complete_path $current
            return
        case @VALUE_OPTIONS@
            return
    end

    if string match --quiet -- '-*' $current
        __vxsettingsctl_table options $command
    else if test -z "$command"
        __vxsettingsctl_table commands
    else if test $arguments -ge $most
        return
    else if test $kind = file
        __fish_complete_path $current
    else if test $kind = assignment; and contains -- --stdin $words
        __vxsettingsctl_table stdin
    else if test $kind = assignment; and string match --quiet -- '*=*' $current
        set -l address (string split --max 1 = -- $current)[1]
        for line in (__vxsettingsctl_table values $address)
            echo $address=$line
        end
    else
        __vxsettingsctl_table $kind
    end
end

complete --command vxsettingsctl --no-files --arguments '(__vxsettingsctl)'
