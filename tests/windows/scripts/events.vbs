' The entry form's events: the script hands out the record that the form edits, and answers what it asks.
Option Explicit
Dim record, asked
Set record = CreateObject("DepCalc10.CalculateDep")
record.RecIndex = "0"
record.RecNew = True
asked = 0

Sub screen_GetCalcDep(myCalcDep, myFYEnd)
  asked = asked + 1
  Set myCalcDep = record
  myFYEnd = DateSerial(2023, 12, 31)
End Sub

Sub screen_CheckMe(myChanged)
  myChanged = True
End Sub

Sub check()
  page.pump
  page.say "asked " & asked & " times"
  If asked = 1 Then page.quit 42
End Sub
