# Completion of tintwell-cli for fish: commands, options, their words, and the ids of saved palettes.

function __tintwell_cli_ids
    set -l words (commandline -opc)
    set -l library
    for at in (seq (count $words))
        if contains -- $words[$at] -l --library; and test $at -lt (count $words)
            set library --library $words[(math $at + 1)]
        else if string match -q -- '--library=*' $words[$at]
            set library $words[$at]
        end
    end
    tintwell-cli $library list --color never 2>/dev/null |
        string replace -r '^(\S+)  \S+  (.*\S) *  #[0-9A-F]{6}  #.*$' '$1\t$2'
end

function __tintwell_cli_in
    __fish_seen_subcommand_from $argv
end

function __tintwell_cli_bare
    not __tintwell_cli_in palette export name contrast save list delete use install lists autostart help
end

complete -c tintwell-cli -f
complete -c tintwell-cli -s h -l help -d 'Print the help'
complete -c tintwell-cli -s V -l version -d 'Print the version'

for line in 'palette:Show the color system of a color' 'export:Print the colors for other programs' \
        'name:Name a color in English' 'contrast:Print the WCAG contrast of two colors' \
        'save:Keep the palette of a color' 'list:List the saved palettes' 'delete:Delete a saved palette' \
        'use:Show the color system of a saved palette' 'install:Install a palette as a color list' \
        'lists:Show the color lists of the desktop' 'autostart:Start the desktop application at login' \
        'help:Print the help of a command'
    set -l parts (string split -m 1 : $line)
    complete -c tintwell-cli -n __tintwell_cli_bare -a $parts[1] -d $parts[2]
    complete -c tintwell-cli -n '__tintwell_cli_in help' -a $parts[1] -d $parts[2]
end

complete -c tintwell-cli -n '__tintwell_cli_in palette use' -s f -l format -x -a 'text json json-lines' -d 'Form of the output'
complete -c tintwell-cli -n '__tintwell_cli_in export' -s f -l format -x -a 'json gpl css tailwind scss tokens ase svg png' -d 'Form of the output'
complete -c tintwell-cli -n '__tintwell_cli_in export' -l colors -x -a 'hex oklch' -d 'Colors in style sheets'
complete -c tintwell-cli -n '__tintwell_cli_in export' -s o -l out -r -F -d 'Write this file'
complete -c tintwell-cli -n '__tintwell_cli_in export' -l list -d 'List the formats'
complete -c tintwell-cli -n '__tintwell_cli_in save list' -s f -l format -x -a 'text json' -d 'Form of the output'
complete -c tintwell-cli -n '__tintwell_cli_bare; or __tintwell_cli_in palette contrast list use' -s c -l color -x -a 'auto always never' -d 'Colors on a terminal'
complete -c tintwell-cli -n '__tintwell_cli_in palette' -s j -l jobs -x -d 'Threads for a stream'
complete -c tintwell-cli -n '__tintwell_cli_bare; or __tintwell_cli_in save list delete use install' -s l -l library -r -F -d 'Use this library file'
complete -c tintwell-cli -n '__tintwell_cli_in autostart' -a 'on off status'
complete -c tintwell-cli -n '__tintwell_cli_in delete use' -a '(__tintwell_cli_ids)'
complete -c tintwell-cli -n '__tintwell_cli_in install' -s i -l id -x -a '(__tintwell_cli_ids)' -d 'Install a saved palette'
