; What ink build makes for the demo; make_content adds its sounds and its cursor.
disc build -o music.cue @/../music.notes
font build --quiet -o .
mac build -o story.mac @/script/story.mas
