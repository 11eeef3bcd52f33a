// The register's events: what it asks by reference stays as it is where a script cannot set it.
var heard = [];
function screen_GetCalcDepAll(records, startYear, years, assets) { heard.push("GetCalcDepAll " + years); }
function screen_GetCalcDep(record) { heard.push("GetCalcDep " + record); }
function screen_ShowCover(shown) { heard.push("ShowCover " + shown); }
function screen_ButtonClick(button) { heard.push("ButtonClick " + button); }

function check() {
  page.pump();
  var wanted = ["ShowCover true", "GetCalcDepAll 0", "GetCalcDep null", "ShowCover false"];
  var got = heard.slice(0, 4).join("; ");
  page.say(got);
  page.quit(got == wanted.join("; ") ? 42 : 1);
}
