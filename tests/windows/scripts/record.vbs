' Every property both ways with its type, and errors as exceptions.
Option Explicit
Dim failures, asset, amounts
failures = 0

Sub Check(what, got, wanted)
  If TypeName(got) = TypeName(wanted) Then
    If got = wanted Then Exit Sub
  End If
  failures = failures + 1
  WScript.Echo what & " is " & TypeName(got) & " " & got & ", not " & TypeName(wanted) & " " & wanted
End Sub

Set asset = CreateObject("DepCalc10.CalculateDep")
asset.RecIndex = 3
Check "RecIndex", asset.RecIndex, "3"
asset.RecNew = True
Check "RecNew", asset.RecNew, True
asset.RecSaved = True
Check "RecSaved", asset.RecSaved, True
asset.RecChanged = True
Check "RecChanged", asset.RecChanged, True
asset.AssetID = "F-1"
Check "AssetID", asset.AssetID, "F-1"
asset.AssetName = "Forklift"
Check "AssetName", asset.AssetName, "Forklift"
asset.ASerial = "SN-7"
Check "ASerial", asset.ASerial, "SN-7"
asset.ADept = "Yard"
Check "ADept", asset.ADept, "Yard"
asset.AssetEndDate = DateSerial(2030, 2, 28)
Check "AssetEndDate", asset.AssetEndDate, DateSerial(2030, 2, 28)
asset.ASalePrice = "1,250.50"
Check "ASalePrice", asset.ASalePrice, "1250.5"
asset.AssetBasis = CCur(12345.6789)
Check "AssetBasis", asset.AssetBasis, CCur(12345.6789)
asset.AssetStartDate = DateSerial(2023, 7, 1)
Check "AssetStartDate", asset.AssetStartDate, DateSerial(2023, 7, 1)
asset.AssetSalvage = 1000
Check "AssetSalvage", asset.AssetSalvage, CCur(1000)
asset.AssetProdCap = 45000
Check "AssetProdCap", asset.AssetProdCap, "45000"
asset.DepRecovery = 5
Check "DepRecovery", asset.DepRecovery, CDbl(5)
asset.DepConvention = 4
Check "DepConvention", asset.DepConvention, "4"
asset.FYEnd = DateSerial(2023, 12, 31)
Check "FYEnd", asset.FYEnd, DateSerial(2023, 12, 31)
asset.DepMethod = "DDB"
Check "DepMethod", asset.DepMethod, "DDB"

asset.AssetStartDate = DateSerial(1899, 12, 30)
Check "no date", asset.AssetStartDate, CDate(0)
asset.AssetStartDate = 45108.75
Check "a time of day", asset.AssetStartDate, DateSerial(2023, 7, 1)

amounts = asset.StraightLine
Check "array of amounts", VarType(amounts), 8204
Check "lower bound", CLng(LBound(amounts)), CLng(0)
Check "upper bound", CLng(UBound(amounts)), CLng(6)
Check "an amount", TypeName(amounts(0)), "Currency"
asset.DepItem(2) = CCur(1.2345)
Check "DepItem(2)", asset.DepItem(2), CCur(1.2345)
Check "FullyDepreciated", asset.FullyDepreciated(1, 2), False
Check "rate", asset.UnitsofProduction, CCur(0.2521)

On Error Resume Next
asset.DepConvention = "abc"
Check "a convention that is no number", Err.Number & " " & Err.Description, "13 Type mismatch"
Err.Clear
asset.AssetBasis = "abc"
Check "a basis that is no number", CLng(Err.Number), CLng(13)
Err.Clear
asset.AssetBasis = 1E+300
Check "a basis beyond every amount", CLng(Err.Number), CLng(6)
Err.Clear
asset.FullyDepreciated 1
Check "too few arguments", Err.Number <> 0, True
Err.Clear
asset.FullyDepreciated 1, 2, 3
Check "too many arguments", Err.Number <> 0, True
Err.Clear
asset.DepRecovery = -5
amounts = asset.StraightLine
Check "a life below 0", Err.Number & " " & Err.Description, "9 Subscript out of range"
Check "who says so", Err.Source, "DepCalc10.CalculateDep"
Err.Clear

WScript.Echo failures & " failures"
If failures = 0 Then WScript.Quit 42
WScript.Quit 1
