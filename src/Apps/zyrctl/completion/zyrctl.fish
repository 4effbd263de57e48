# fish completion of zyrctl; load it with: zyrctl completion fish | source
function __zyrctl_complete
    set -l line (commandline --current-process --cut-at-cursor)
    set -l program (string split --max 1 ' ' -- (string trim --left -- "$line"))[1]
    $program __complete "$line" 2>/dev/null
end
complete --command zyrctl --no-files --arguments '(__zyrctl_complete)'
