# The program itself says how a call may go on: a candidate a line, a tab and what it is behind it.
function __ventlock_cli_complete
    # Without the marks that kept it together; a quotation may still be open.
    set -l word (commandline --current-token)
    set word (string unescape -- $word || string unescape -- $word\' || string unescape -- $word\" || echo $word)
    set -l typed (commandline --current-process --tokenize --cut-at-cursor)
    for line in (ventlock-cli complete $typed[2..] $word 2>/dev/null)
        switch $line
            case \t'*files'
                set -l before (string match --regex -- '^-[^=]*=' $word || echo '')
                set -l path (string replace --regex -- '^-[^=]*=' '' $word)
                # As the shell itself completes what it knows nothing of.
                set -l paths (complete --do-complete "__ventlock_cli_files $path")
                test $line = \tini-files && set paths (string match --regex -- '(?i)^.*(?:\.ini|/)$' $paths)
                for path in $paths
                    printf '%s\n' $before$path
                end
            case '*'
                printf '%s\n' $line
        end
    end
end

complete --command ventlock-cli --no-files --arguments '(__ventlock_cli_complete)'
