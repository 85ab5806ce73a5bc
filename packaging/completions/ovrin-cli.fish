# Completion of ovrin-cli for fish.
set -l verbs draft lines scale value segments parse clean minutes library
set -l library list show add import remove check groceries
complete -c ovrin-cli -l store -r -d 'a library folder other than your own'
complete -c ovrin-cli -l help -d 'what it does'
complete -c ovrin-cli -n "not __fish_seen_subcommand_from $verbs" -f -a "$verbs"
complete -c ovrin-cli -n '__fish_seen_subcommand_from draft' -l batch -l static -l no-photo
complete -c ovrin-cli -n '__fish_seen_subcommand_from draft' -l page-url -x
complete -c ovrin-cli -n "__fish_seen_subcommand_from library; and not __fish_seen_subcommand_from $library" -f -a "$library"
complete -c ovrin-cli -n '__fish_seen_subcommand_from list' -l filter -x -a 'all saved cooked recent'
complete -c ovrin-cli -n '__fish_seen_subcommand_from list' -l search -x
complete -c ovrin-cli -n '__fish_seen_subcommand_from list show' -l json
complete -c ovrin-cli -n '__fish_seen_subcommand_from show groceries' -l scale -x -a '0.5 1 1.5 2 3 4'
