' A host in script: what docs/windows.md asks of one, on a company file in memory. It is a model to
' start from, and one of the hosts that the calculator is tested on.
Option Explicit

Sub Require(condition, number, description)
  If Not condition Then Err.Raise number, "Host", description
End Sub

' The values of a record. Names ignore case; the spelling used first is kept.
Class HostFields
  Private values_
  Private names_

  Private Sub Class_Initialize()
    Set values_ = CreateObject("Scripting.Dictionary")
    Set names_ = CreateObject("Scripting.Dictionary")
  End Sub

  Public Function GetValue(name)
    If values_.Exists(LCase(name)) Then GetValue = values_.Item(LCase(name))
  End Function

  Public Sub SetValue(name, value)
    If Not names_.Exists(LCase(name)) Then names_.Add LCase(name), name
    values_.Item(LCase(name)) = value
  End Sub

  Public Function Names()
    Names = names_.Items
  End Function

  Public Function CopyOfAll()
    Dim fields, name
    Set fields = New HostFields
    For Each name In names_.Items
      fields.SetValue name, GetValue(name)
    Next
    Set CopyOfAll = fields
  End Function
End Class

' A record as it was when this object was made, with what was set since.
Class HostRecord
  Public Modified
  Private table_
  Private index_
  Private fields_

  Public Sub Take(table, index, fields)
    Set table_ = table
    index_ = index
    Set fields_ = fields
    Modified = False
  End Sub

  Public Function BeginEdit()
    BeginEdit = 0
  End Function

  Public Function Fields()
    Set Fields = fields_
  End Function

  Public Sub Commit()
    Require table_.Exists(index_), 9, "Subscript out of range"
    If Modified Then table_.Store index_, fields_.CopyOfAll
    Modified = False
  End Sub

  Public Sub Delete()
    Require table_.Exists(index_), 9, "Subscript out of range"
    table_.Remove index_
  End Sub
End Class

Class HostTable
  Private file_
  Private records_

  Private Sub Class_Initialize()
    Set records_ = CreateObject("Scripting.Dictionary")
  End Sub

  Public Sub BelongTo(file)
    Set file_ = file
  End Sub

  Public Function Count()
    file_.RequireOpen
    Count = records_.Count
  End Function

  Public Function Exists(index)
    file_.RequireOpen
    Exists = records_.Exists(CStr(index))
  End Function

  Public Function Item(index)
    Dim record
    Require Exists(index), 9, "Subscript out of range"
    Set record = New HostRecord
    record.Take Me, index, records_.Item(CStr(index)).CopyOfAll
    Set Item = record
  End Function

  Public Function Add(index)
    Require index >= 0 And Not Exists(index), 5, "Invalid procedure call or argument"
    Store index, New HostFields
    Set Add = Item(index)
  End Function

  Public Sub Store(index, fields)
    If records_.Exists(CStr(index)) Then Remove index
    records_.Add CStr(index), fields
  End Sub

  Public Sub Remove(index)
    records_.Remove CStr(index)
  End Sub
End Class

Class HostCompanyFile
  Private open_
  Private tables_
  Private fiscal_year_start_

  Private Sub Class_Initialize()
    Set tables_ = CreateObject("Scripting.Dictionary")
    fiscal_year_start_ = DateSerial(2024, 1, 1)
    open_ = True
  End Sub

  Public Sub RequireOpen()
    Require open_, 91, "Object variable or With block variable not set"
  End Sub

  Public Function OpenTable(name)
    Dim table
    RequireOpen
    Require name <> "", 5, "Invalid procedure call or argument"
    If Not tables_.Exists(name) Then
      Set table = New HostTable
      table.BelongTo Me
      tables_.Add name, table
    End If
    Set OpenTable = tables_.Item(name)
  End Function

  Public Function FiscalYearStart()
    RequireOpen
    FiscalYearStart = fiscal_year_start_
  End Function

  Public Function IsMultiUser()
    RequireOpen
    IsMultiUser = False
  End Function

  Public Function PalettePicture()
    RequireOpen
    Set PalettePicture = Nothing
  End Function

  Public Sub BeginFiscalYear(day)
    fiscal_year_start_ = day
  End Sub

  Public Sub SetOpen(open)
    open_ = open
  End Sub
End Class

Class HostApplication
  Private file_
  Private is_open_

  Private Sub Class_Initialize()
    Set file_ = New HostCompanyFile
    is_open_ = True
  End Sub

  Public Function IsCompanyFileOpen()
    IsCompanyFileOpen = is_open_
  End Function

  Public Function CompanyFile()
    Set CompanyFile = Nothing
    If is_open_ Then Set CompanyFile = file_
  End Function

  Public Function StartDirectory()
    StartDirectory = "C:\books"
  End Function

  ' What a user of this host does.
  Public Sub OpenFile()
    file_.SetOpen True
    is_open_ = True
  End Sub

  Public Sub CloseFile()
    file_.SetOpen False
    is_open_ = False
  End Sub

  Public Sub BeginFiscalYear(day)
    file_.BeginFiscalYear day
  End Sub
End Class

Function NewHost()
  Set NewHost = New HostApplication
End Function
