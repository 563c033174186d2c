#!/bin/sh
# record-and-play.sh DESKTOP STANDIN BUNDLE EFFECT TOUR PROJECT FOLDER: what a user does is recorded, and playing it comes to the
# same result: the recording ends with what the layer's stack was.
set -eu
desktop=$1 standin=$2 bundle=$3 effect=$4 tour=$5 project=$6 folder=$7
mkdir -p "$folder"
rm -f "$folder/recorded.scenario"
"$desktop" --bundle "$bundle" --effect "$effect" --play "$tour" --pictures "$folder" --record "$folder/recorded.scenario" "$project"
for line in "install the effect in \"$effect\"" 'choose "Jitter" from "Add Effector"' 'type "glow"' 'drag row "glow" into "Group 1"' \
  'drag row "Sheets" below "glow"' 'click box of "glow"' 'undo' 'redo' 'rename "glow" to "lamp"' \
  'move "Vortan Dots Renderer" to place 1' 'a sibling notifies "rendered 120 frames"' 'cover the panel' \
  'expect stack "Vortan Dots Renderer" "lamp" "Vortan Sheets Object" "Vortan"'; do
  grep -qxF "$line" "$folder/recorded.scenario" || { echo "not recorded: $line" >&2; exit 1; }
done
"$standin" play --own-display --limit 280 --bundle "$bundle" --pictures "$folder" "$folder/recorded.scenario"
