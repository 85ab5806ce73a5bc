# Completion of ovrin-share for fish.
complete -c ovrin-share -l page-url -x -d 'where a saved page came from'
complete -c ovrin-share -l static -d 'never render the page'
complete -c ovrin-share -l no-photo -d 'fetch and cut no photo'
complete -c ovrin-share -l help -d 'what it does'
complete -c ovrin-share -l version -d 'print the version'
