# Completion of tolvanectl for fish.

set -l commands scan size access duplicates apps leftovers check trash restore ports kill performance maintenance log

complete -c tolvanectl -f
complete -c tolvanectl -s h -l help -d 'Print the options and exit'
complete -c tolvanectl -l json -d 'Print one JSON document'
complete -c tolvanectl -l version -d 'Print the version and exit'

complete -c tolvanectl -n "not __fish_seen_subcommand_from $commands" -a scan -d 'Show what fills a folder'
complete -c tolvanectl -n "not __fish_seen_subcommand_from $commands" -a size -d 'Measure single items'
complete -c tolvanectl -n "not __fish_seen_subcommand_from $commands" -a access -d 'Tell whether everything may be read'
complete -c tolvanectl -n "not __fish_seen_subcommand_from $commands" -a duplicates -d 'Find files of equal content'
complete -c tolvanectl -n "not __fish_seen_subcommand_from $commands" -a apps -d 'List the installed applications'
complete -c tolvanectl -n "not __fish_seen_subcommand_from $commands" -a leftovers -d 'Show what an application leaves behind'
complete -c tolvanectl -n "not __fish_seen_subcommand_from $commands" -a check -d 'Measure what could be reclaimed'
complete -c tolvanectl -n "not __fish_seen_subcommand_from $commands" -a trash -d 'Move items to the Trash'
complete -c tolvanectl -n "not __fish_seen_subcommand_from $commands" -a restore -d 'Put back what trash moved'
complete -c tolvanectl -n "not __fish_seen_subcommand_from $commands" -a ports -d 'List the processes that listen on the network'
complete -c tolvanectl -n "not __fish_seen_subcommand_from $commands" -a kill -d 'End the processes that listen on a port'
complete -c tolvanectl -n "not __fish_seen_subcommand_from $commands" -a performance -d 'Show how memory and disk are used and what starts by itself'
complete -c tolvanectl -n "not __fish_seen_subcommand_from $commands" -a maintenance -d 'Empty caches and rebuild tables of the system'
complete -c tolvanectl -n "not __fish_seen_subcommand_from $commands" -a log -d "Show the end of the application's log"

complete -c tolvanectl -n '__fish_seen_subcommand_from scan' -l detailed -d 'Keep many more files of each folder'
complete -c tolvanectl -n '__fish_seen_subcommand_from scan' -x -l set -d 'Override a scan option (FIELD=VALUE)'
complete -c tolvanectl -n '__fish_seen_subcommand_from scan' -x -l depth -d 'Levels of children to print'
complete -c tolvanectl -n '__fish_seen_subcommand_from scan' -x -l top -d 'List so many of the largest files'
complete -c tolvanectl -n '__fish_seen_subcommand_from scan' -r -F -l svg -d "Draw the folder's children into a file"
complete -c tolvanectl -n '__fish_seen_subcommand_from scan' -x -l size -d 'Size of the drawing in pixels (WxH)'
complete -c tolvanectl -n '__fish_seen_subcommand_from scan' -x -a '(__fish_complete_directories)'
complete -c tolvanectl -n '__fish_seen_subcommand_from size' -F
complete -c tolvanectl -n '__fish_seen_subcommand_from duplicates' -x -l minimum-size -d 'Leave out smaller files (bytes)'
complete -c tolvanectl -n '__fish_seen_subcommand_from duplicates' -l include-hidden -d 'Look at hidden items, too'
complete -c tolvanectl -n '__fish_seen_subcommand_from duplicates' -x -l exclude -a '(__fish_complete_directories)' -d 'Leave out a folder'
complete -c tolvanectl -n '__fish_seen_subcommand_from duplicates' -l print0 -d 'Print only the paths of the copies, ended by NUL'
complete -c tolvanectl -n '__fish_seen_subcommand_from duplicates' -x -a '(__fish_complete_directories)'
complete -c tolvanectl -n '__fish_seen_subcommand_from apps' -l system -d "Include the system's own applications"
complete -c tolvanectl -n '__fish_seen_subcommand_from apps' -l sizes -d 'Measure each application'
complete -c tolvanectl -n '__fish_seen_subcommand_from leftovers' -l system-level -d 'Look in the folders of the whole system too'
complete -c tolvanectl -n '__fish_seen_subcommand_from check' -x -l duplicates-root -a '(__fish_complete_directories)' -d 'Look for duplicates in this folder'
complete -c tolvanectl -n '__fish_seen_subcommand_from check' -l no-duplicates -d 'Do not look for duplicates'
complete -c tolvanectl -n '__fish_seen_subcommand_from check' -l system-apps -d "Include the system's own applications"
complete -c tolvanectl -n '__fish_seen_subcommand_from trash' -x -l within -a '(__fish_complete_directories)' -d 'A folder the items must lie in'
complete -c tolvanectl -n '__fish_seen_subcommand_from trash' -l dry-run -d 'Only tell what would be moved'
complete -c tolvanectl -n '__fish_seen_subcommand_from trash' -F
complete -c tolvanectl -n '__fish_seen_subcommand_from restore' -F
complete -c tolvanectl -n '__fish_seen_subcommand_from ports' -l watch -d 'Look again every 4.5 seconds'
complete -c tolvanectl -n '__fish_seen_subcommand_from kill' -x -l pid -a '(__fish_complete_pids)' -d 'Signal the listening process with this number'
complete -c tolvanectl -n '__fish_seen_subcommand_from kill' -l force -d 'Send SIGKILL'
complete -c tolvanectl -n '__fish_seen_subcommand_from kill' -l tree -d 'Signal all descendants first'
complete -c tolvanectl -n '__fish_seen_subcommand_from kill' -l yes -d 'Do not ask'
complete -c tolvanectl -n '__fish_seen_subcommand_from performance' -x -l limit -d 'List so many of the heaviest processes'
complete -c tolvanectl -n '__fish_seen_subcommand_from maintenance' -x -a 'dns ls spotlight snapshots purge'
complete -c tolvanectl -n '__fish_seen_subcommand_from log' -x -l bytes -d "How much of the log's end to print"
