; What ink build makes for the game: its disc of music, its fonts and its script.
disc build -o music.cue @/sound/day.notes @/sound/night.notes @/sound/painting.notes
font build --quiet -o .
mac build -o story.mac @/script/story.mas
