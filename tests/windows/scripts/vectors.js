// vectors.js INPUT OUTPUT: every asset of INPUT by the four methods, as `depcalc schedule` writes it.
var files = new ActiveXObject("Scripting.FileSystemObject");
var input = files.OpenTextFile(WScript.Arguments(0), 1);
var output = files.CreateTextFile(WScript.Arguments(1), true);

function fixed4(amount) { return amount.toFixed(4); }

function firstFiscalYear(start, fiscalEnd) {
  var year = Number(start.substr(0, 4));
  var end = new Date(year, Number(fiscalEnd.substr(0, 2)) - 1, Number(fiscalEnd.substr(3, 2)));
  var begun = new Date(year, Number(start.substr(5, 2)) - 1, Number(start.substr(8, 2)));
  return end.getTime() < begun.getTime() ? year + 1 : year;
}

function writeSchedule(id, method, year, amounts, years) {
  var all = new VBArray(amounts).toArray();
  for (var i = 0; i < years; ++i) output.Write(id + "," + method + "," + (year + i) + "," + fixed4(all[i]) + "\n");
}

output.Write("id,method,fiscal_year,amount\n");
input.ReadLine();
var count = 0;
while (!input.AtEndOfStream) {
  var field = input.ReadLine().split(",");
  var asset = new ActiveXObject("DepCalc10.CalculateDep");
  asset.AssetID = field[0];
  asset.AssetName = field[1];
  asset.ASerial = field[2];
  asset.ADept = field[3];
  asset.AssetStartDate = field[4];
  asset.FYEnd = "2000-" + field[5];
  asset.DepRecovery = Number(field[6]);
  asset.DepConvention = field[7];
  asset.AssetBasis = field[8];
  asset.AssetSalvage = field[9];
  asset.AssetProdCap = field[10];
  var year = firstFiscalYear(field[4], field[5]);
  var years = Number(field[6]) + (field[7] == "0" ? 0 : 1);
  writeSchedule(asset.AssetID, "SL", year, asset.StraightLine(), years);
  writeSchedule(asset.AssetID, "SYD", year, asset.SumofYearsDigits(), years);
  writeSchedule(asset.AssetID, "DDB", year, asset.DoubleDecliningBalance(), years);
  output.Write(asset.AssetID + ",UOP,," + fixed4(asset.UnitsofProduction()) + "\n");
  ++count;
}
output.Close();
WScript.Echo(count + " assets");
WScript.Quit(count == 300 ? 42 : 1);
