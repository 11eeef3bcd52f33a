' vectors.vbs INPUT OUTPUT: every asset of INPUT by the four methods, as `depcalc schedule` writes it.
Option Explicit
Dim files, input, output, count, field, asset, year, years
Set files = CreateObject("Scripting.FileSystemObject")
Set input = files.OpenTextFile(WScript.Arguments(0), 1)
Set output = files.CreateTextFile(WScript.Arguments(1), True)

Function Fixed4(amount)
  Dim text, point
  text = CStr(amount)
  point = InStr(text, ".")
  If point = 0 Then
    text = text & "."
    point = Len(text)
  End If
  Fixed4 = text & String(4 - (Len(text) - point), "0")
End Function

Function FirstFiscalYear(start, fiscalEnd)
  Dim begun, ending
  begun = DateSerial(CInt(Mid(start, 1, 4)), CInt(Mid(start, 6, 2)), CInt(Mid(start, 9, 2)))
  ending = DateSerial(CInt(Mid(start, 1, 4)), CInt(Mid(fiscalEnd, 1, 2)), CInt(Mid(fiscalEnd, 4, 2)))
  FirstFiscalYear = CInt(Mid(start, 1, 4))
  If ending < begun Then FirstFiscalYear = FirstFiscalYear + 1
End Function

Sub WriteSchedule(id, method, year, amounts, years)
  Dim i
  For i = 0 To years - 1
    output.Write id & "," & method & "," & (year + i) & "," & Fixed4(amounts(i)) & vbLf
  Next
End Sub

output.Write "id,method,fiscal_year,amount" & vbLf
input.ReadLine
count = 0
Do Until input.AtEndOfStream
  field = Split(input.ReadLine, ",")
  Set asset = CreateObject("DepCalc10.CalculateDep")
  asset.AssetID = field(0)
  asset.AssetName = field(1)
  asset.ASerial = field(2)
  asset.ADept = field(3)
  asset.AssetStartDate = field(4)
  asset.FYEnd = "2000-" & field(5)
  asset.DepRecovery = field(6)
  asset.DepConvention = field(7)
  asset.AssetBasis = field(8)
  asset.AssetSalvage = field(9)
  asset.AssetProdCap = field(10)
  year = FirstFiscalYear(field(4), field(5))
  years = CInt(field(6))
  If field(7) <> "0" Then years = years + 1
  WriteSchedule asset.AssetID, "SL", year, asset.StraightLine, years
  WriteSchedule asset.AssetID, "SYD", year, asset.SumofYearsDigits, years
  WriteSchedule asset.AssetID, "DDB", year, asset.DoubleDecliningBalance, years
  output.Write asset.AssetID & ",UOP,," & Fixed4(asset.UnitsofProduction) & vbLf
  count = count + 1
Loop
output.Close
WScript.Echo count & " assets"
If count = 300 Then WScript.Quit 42
WScript.Quit 1
