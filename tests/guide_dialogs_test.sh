#!/usr/bin/env bash
# guide_dialogs_test.sh ROOT: every dialog and every box of the desktop program leads to a page of
# the guide. A dialog has F1 and a Help button; a box, and what the toolkit makes, F1.
set -euo pipefail
cd "$1/desktop"

status=0
count=0
complain() {
  echo "desktop/$1: $2"
  status=1
}
occurrences() { grep -cE "$1" "$2" || true; }

while IFS= read -r source; do
  dialogs=$(occurrences ': QDialog\(' "$source")
  with_help=$(occurrences 'addGuideHelp\(\*this,' "$source")
  [[ $dialogs -eq $with_help ]] || complain "$source" "a dialog without addGuideHelp"
  boxes=$(occurrences '^ *(QMessageBox|QFileDialog|QPrintDialog|QPrintPreviewDialog|QInputDialog) [a-z_]+\(' "$source")
  with_key=$(occurrences 'addGuideKey\((box|dialog|shown),' "$source")
  # The calculator's own are heard of by the window, which knows the guide.
  [[ $source != ./site/desktop_site.cpp ]] || with_key=$(occurrences 'box_opens_\(shown,' "$source")
  [[ $with_key -ge $boxes ]] || complain "$source" "$boxes boxes, $with_key with addGuideKey"
  count=$((count + dialogs + boxes))
  ! grep -nE 'QMessageBox::(warning|question|information|critical|about)\(|QFileDialog::get|QInputDialog::get' \
    "$source" || complain "$source" "a box that leads nowhere"
done < <(find . -name '*.cpp' | sort)
echo "$count dialogs and boxes"
[[ $count -ge 19 ]] || status=1
exit $status
