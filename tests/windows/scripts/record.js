// Every property both ways, amounts, and errors as exceptions.
var failures = 0;
function check(what, got, wanted) {
  if (got === wanted) return;
  ++failures;
  WScript.Echo(what + " is " + typeof got + " " + got + ", not " + typeof wanted + " " + wanted);
}

var texts = ["AssetID", "AssetName", "ASerial", "ADept", "DepMethod"];
var cases = [
  // property, what is set, what is read
  ["RecIndex", "12", "12"], ["RecIndex", 7, "7"], ["RecIndex", "abc", "7"],
  ["RecNew", true, true], ["RecNew", false, false],
  ["RecSaved", 1, true], ["RecSaved", 0, false],
  ["RecChanged", true, true], ["RecChanged", "False", false],
  ["ASalePrice", "1,250.50", "1250.5"], ["ASalePrice", "abc", "1250.5"],
  ["AssetBasis", 10000.25, 10000.25], ["AssetBasis", "1,234.56785", 1234.5678], ["AssetBasis", 0.00005, 0],
  ["AssetSalvage", -0.0001, -0.0001], ["AssetSalvage", 922337203685477, 922337203685477],
  ["AssetProdCap", "150000", "150000"], ["AssetProdCap", 0.1, "0.1"], ["AssetProdCap", "abc", "0"],
  ["DepRecovery", 5, 5], ["DepRecovery", 2.5, 2.5], ["DepRecovery", "7", 7],
  ["DepConvention", "4", "4"], ["DepConvention", 2, "2"], ["DepConvention", "", "0"]
];
for (var t = 0; t < texts.length; ++t) {
  cases.push([texts[t], "", ""], [texts[t], "Forklift", "Forklift"], [texts[t], 42, "42"],
             [texts[t], "\u20AC \uD83D\uDE9C", "\u20AC \uD83D\uDE9C"], [texts[t], "a\0b", "a\0b"],
             [texts[t], "\uD83D", "\uD83D"], [texts[t], "\uDE9C\uD83D", "\uDE9C\uD83D"]);
}

var asset = new ActiveXObject("DepCalc10.CalculateDep");
var seen = {};
check("RecIndex of a new asset", asset.RecIndex, "0");
check("DepConvention of a new asset", asset.DepConvention, "0");
check("DepItem(0) of a new asset", asset.DepItem(0), 0);
for (var c = 0; c < cases.length; ++c) {
  asset[cases[c][0]] = cases[c][1];
  check(cases[c][0] + " := " + cases[c][1], asset[cases[c][0]], cases[c][2]);
  seen[cases[c][0]] = true;
}
var dates = ["AssetEndDate", "AssetStartDate", "FYEnd"];
for (var d = 0; d < dates.length; ++d) {
  asset[dates[d]] = "2/29/2024";
  check(dates[d], new Date(asset[dates[d]]).getTime(), new Date(2024, 1, 29).getTime());
  seen[dates[d]] = true;
}
var count = 0;
for (var name in seen) ++count;
check("number of properties", count, 18);

// Enumerations by number: half a year, over five years.
asset.AssetBasis = 10000;
asset.AssetSalvage = 1000;
asset.DepRecovery = 5;
asset.DepConvention = 1;
asset.AssetStartDate = "7/1/2023";
asset.FYEnd = "12/31/2023";
check("straight line", new VBArray(asset.StraightLine()).toArray().join(" "), "900 1800 1800 1800 1800 900 0");
check("lower bound", new VBArray(asset.StraightLine()).lbound(), 0);
check("DepItem(5)", asset.DepItem(5), 900);
asset.DepItem(5) = 12.3456;
check("DepItem(5) set", asset.DepItem(5), 12.3456);
check("DepItem(6)", asset.DepItem(6), 0);
check("DepItem(-1)", asset.DepItem(-1), 0);
check("FullyDepreciated exactly", asset.FullyDepreciated(8900, 100), false);
check("FullyDepreciated", asset.FullyDepreciated(8900.01, 100), true);
asset.AssetProdCap = 45000;
check("rate", asset.UnitsofProduction(), 0.2);

function failing(what, number, text, action) {
  var met = null;
  try { action(); } catch (e) { met = e; }
  if (met === null) { ++failures; WScript.Echo(what + " does not fail"); return; }
  check(what + ": number", met.number & 0xFFFF, number);
  if (text !== null) check(what + ": text", met.description, text);
}
failing("a convention that is no number", 13, "Type mismatch", function () { asset.DepConvention = "abc"; });
failing("an index beyond 32 bits", 6, "Overflow", function () { asset.RecIndex = "3000000000"; });
failing("an unknown member", 438, null, function () { asset.Nothing(1); });
asset.DepRecovery = -5;
failing("a life below 0", 9, "Subscript out of range", function () { asset.StraightLine(); });

WScript.Echo(failures + " failures");
WScript.Quit(failures == 0 ? 42 : 1);
