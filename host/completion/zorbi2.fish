# Completion of zorbi2 in fish. The program itself knows what can stand next.

function __zorbi2_complete
    set -l words (commandline -opc)
    set -l word (commandline -ct)
    for line in ($words[1] complete $words[2..-1] "$word" 2>/dev/null)
        switch $line
            case :recipes
                __fish_complete_suffix .toml
            case :folders
                __fish_complete_directories "$word"
            case :files
                __fish_complete_path "$word"
            case '*'
                echo $line
        end
    end
end

complete -c zorbi2 -f -a '(__zorbi2_complete)'
