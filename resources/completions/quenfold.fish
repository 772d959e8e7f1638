# SPDX-License-Identifier: Apache-2.0
# Completion of quenfold's command line for fish.
function __quenfold_cleaners
    quenfold --list 2>/dev/null | string replace -r '^#' '' | while read -l -d \t token name
        echo (string lower -- $token)\t$name
    end
end

set -l modes --agent --list --clean --clipboard --version --help
complete -c quenfold -f -n "not __fish_seen_argument -l agent -l list -l clean -l clipboard" -a "$modes"
complete -c quenfold -n "__fish_seen_argument -l list" -l json -d "as JSON"
complete -c quenfold -n "__fish_seen_argument -l clean -l clipboard" -a "(__quenfold_cleaners)"
complete -c quenfold -F -n "__fish_seen_argument -l clean"
complete -c quenfold -n "__fish_seen_argument -l clean" -l in-place -d "replace the files"
complete -c quenfold -n "__fish_seen_argument -l clean" -l encoding -x -d "of texts without a byte-order mark"
complete -c quenfold -n "__fish_seen_argument -l clean" -l jobs -x -d "how many files at a time"
