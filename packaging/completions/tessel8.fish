# Completions of tessel8 for fish.

function __tessel8_settings
    tessel8 list --params 2>/dev/null | awk 'NR > 1 { print $2 "=\t" $4 " " $5 }'
end

set -l commands render panel live list info programs convert
set -l none "not __fish_seen_subcommand_from $commands"
complete -c tessel8 -l help -d 'Print help'
complete -c tessel8 -n $none -l version -d 'Print the version'
complete -c tessel8 -f -n $none -a render -d 'Send an audio file through the effect'
complete -c tessel8 -f -n $none -a panel -d 'Show the panel in a window'
complete -c tessel8 -f -n $none -a live -d 'Run the effect on JACK or PipeWire'
complete -c tessel8 -f -n $none -a list -d 'List parameters or programs'
complete -c tessel8 -f -n $none -a info -d 'Tell about a VST 2.4 plug-in'
complete -c tessel8 -f -n $none -a programs -d 'List the programs in a preset or bank file'
complete -c tessel8 -f -n $none -a convert -d 'Write a preset or bank file in the form of today'

set -l choosing '__fish_seen_subcommand_from render panel live'
complete -c tessel8 -n $choosing -l bank -rF -d 'Bank file'
complete -c tessel8 -n $choosing -l program -x -d 'Stored program, by number or name'
complete -c tessel8 -n $choosing -l preset -rF -d 'Preset file'
complete -c tessel8 -n $choosing -l set -x -a '(__tessel8_settings)' -d 'Parameter and value'
complete -c tessel8 -n '__fish_seen_subcommand_from render panel live list' -l plugin -rF -d 'Plug-in file'

set -l rendering '__fish_seen_subcommand_from render'
complete -c tessel8 -n $rendering -l tempo -x -d 'Tempo of the song in BPM'
complete -c tessel8 -n $rendering -l midi -rF -d 'MIDI file that plays along'
complete -c tessel8 -n $rendering -l tail -x -a silent -d 'Seconds after the input'
complete -c tessel8 -n $rendering -l block -x -d 'Frames in a block'
complete -c tessel8 -n $rendering -l format -x -a 'float input' -d 'Samples of the output'

set -l showing '__fish_seen_subcommand_from panel'
complete -c tessel8 -n $showing -l input -rF -d 'Audio file that runs through'
complete -c tessel8 -n $showing -l click -x -d 'Click at this pixel: X,Y'
complete -c tessel8 -n $showing -l screenshot -rF -d 'Picture of the panel (PNG)'
complete -c tessel8 -n $showing -l seconds -x -d 'End after so long'

set -l playing '__fish_seen_subcommand_from live'
complete -c tessel8 -n $playing -l name -x -d 'Name of the JACK client'
complete -c tessel8 -n $playing -l connect -d 'Connect with the hardware'
complete -c tessel8 -n $playing -l no-connect -d 'Leave connecting to others'
complete -c tessel8 -n $playing -l tempo -x -d 'Tempo of the song in BPM'
complete -c tessel8 -n $playing -l no-panel -d 'Leave out the panel'
complete -c tessel8 -n $playing -l seconds -x -d 'End after so long'

complete -c tessel8 -n '__fish_seen_subcommand_from list' -l params -d 'All parameters'
complete -c tessel8 -n '__fish_seen_subcommand_from list' -l programs -d 'All stored programs'
