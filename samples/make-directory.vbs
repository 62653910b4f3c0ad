' Makes a directory of employees as the client keeps it, to export from and to link contacts to.
'   cscript //nologo make-directory.vbs FILE.mdb [EMPLOYEES]
' 56 people and 8 phone sets are written down here; with EMPLOYEES there are that many, the others made up.
' Works with the real DAO as well. Letters with accents are written as \ and their number in the Western code
' page of Windows.
Option Explicit

Const Locale = ";LANGID=0x0409;CP=1252;COUNTRY=0"
Const FailOnError = 128
Const PhoneSets = 1, Employees = 2

Dim engine, database, people, sets, wanted
If WScript.Arguments.Count < 1 Or WScript.Arguments.Count > 2 Then
    WScript.Echo "usage: make-directory.vbs FILE.mdb [EMPLOYEES]"
    WScript.Quit 2
End If
wanted = 0
If WScript.Arguments.Count = 2 Then wanted = CLng(WScript.Arguments(1))

Set engine = CreateObject("DAO.DBEngine.36")
Set database = engine.CreateDatabase(WScript.Arguments(0), Locale)
MakeTables
engine.BeginTrans
people = AddPeople
sets = AddPhoneSets(people)
If wanted > people Then AddMadeUp people + sets + 1, people + 1, wanted
If wanted > people Then people = wanted
engine.CommitTrans
database.Close
WScript.Echo people & " employees and " & sets & " phone sets in " & WScript.Arguments(0)

Sub MakeTables
    database.Execute "Create Table Employees (EmployeeId Long Primary Key, FirstName Text(50), " & _
        "LastName Text(50), Department Text(50), EmailAddress Text(80), BusinessPhone Text(40), " & _
        "BusinessPhone2 Text(40), MobilePhone Text(40), HomePhone Text(40), PagerPhone Text(40), " & _
        "OtherPhone Text(40), BillingInformation Text(80), Categories Long, AssistantID Long)", FailOnError
    database.Execute "Create Table BLFPagesContents (BLFpageId Long, EmployeeId Long, BindToEmployee YesNo)", _
        FailOnError
    database.Execute "Create Index ByEmployee On BLFPagesContents (EmployeeId)", FailOnError
    database.Execute "Create Table Default (BusinessPhoneLabel Text(50), BusinessPhone2Label Text(50), " & _
        "MobilePhoneLabel Text(50), HomePhoneLabel Text(50), PagerPhoneLabel Text(50), " & _
        "OtherPhoneLabel Text(50), AssistantPhoneLabel Text(50))", FailOnError
    AddRow "Default", Array("BusinessPhoneLabel", "Desk", "BusinessPhone2Label", "Desk (2nd line)", _
        "MobilePhoneLabel", "Company mobile", "HomePhoneLabel", "Private", "PagerPhoneLabel", "DECT", _
        "OtherPhoneLabel", "Laboratory", "AssistantPhoneLabel", "Secretary")
End Sub

' First|last|department|extension|what else there is: m mobile, h home, p pager, o other, 2 second line,
' e e-mail, b billing. Everybody is on the page of employees; with "x" the own set is on the first page, bound.
Function AddPeople
    Dim lines, line, parts, id
    lines = Array( _
        "Ann|Lee|Management|101|mhe2bx", "Bj\f6rn|\c5kesson|Management|102|mhex", _
        "Chlo\e9|Lef\e8vre|Management|103|me", "D\e1vid|Szoke|Management|104|e", _
        "Elzbieta|W\f3jcik|Sales|111|meb", "Fran\e7ois|D'Aubign\e9|Sales|112|mexo", _
        "Gr\e1inne|O'Hara|Sales|113|me", "Hans-J\fcrgen|M\fcller|Sales|114|mhe", _
        "Ines|Pe\f1a|Sales|115|me", "Jan|de Vries|Sales|116|e", _
        "Karolina|Lukaszewicz|Sales|117|m", "L\e1szl\f3|Ori|Sales|118|", _
        "Mar\eda Jos\e9|Garc\eda|Sales|119|mebx", "Ngoc|Nguyen|Sales|120|me", _
        "Oskar|Sj\f6berg|Purchasing|131|e", "P\e9ter|Nagy|Purchasing|132|me", _
        "Quentin|Roux|Purchasing|133|m", "Rosa|Bianchi|Purchasing|134|e", _
        "S\f8ren|\d8stergaard|Workshop|141|p", "Tom\e1\9a|Dvor\e1k|Workshop|142|p", _
        "Ulla|Gr\fcn|Workshop|143|pm", "V\edt|\8atastn\fd|Workshop|144|p", _
        "Wieslaw|Zieba|Workshop|145|po", "Xavier|Coll|Workshop|146|", _
        "Yves|B\e9langer|Workshop|147|p", "Zo\eb|van 't Hoff|Workshop|148|pe", _
        "Aino|M\e4kel\e4|Laboratory|151|oe", "Ben|Zweig|Laboratory|152|oem", _
        "C\e9line|Ren\e9|Laboratory|153|oe", "Dmitri|Orlov|Laboratory|154|o", _
        "Eir\edkur|J\f3nsson|Laboratory|155|oe", "Fatma|Yildiz|Laboratory|156|oeb", _
        "Giulia|Lo Presti|Laboratory|157|o", "Hiroko|Tanaka|Laboratory|158|oe", _
        "Ivan|Petrovic|Accounts|161|eb", "Jos\e9|Ib\e1\f1ez|Accounts|162|eb", _
        "Katar\edna|Cern\e1|Accounts|163|eb2", "Lars|Nystr\f6m|Accounts|164|b", _
        "Mette|Kj\e6r|Accounts|165|e", "No\e9mie|C\f4t\e9|Reception|100|2ex", _
        "Ondrej|Nov\e1k|Reception|109|e", "Pilar|N\fa\f1ez||171|m", _
        "Radoslaw|Gl\f3wka||172|", "Sin\e9ad|N\ed Bhriain|Support|181|me", _
        "Th\e9r\e8se|Lema\eetre|Support|182|e", "Udo|Wei\df|Support|183|me2", _
        "V\e9ronique|H\e9bert|Support|184|e", "Wim|B\f6rger|Support|185|meh", _
        "Ximena|Mu\f1oz|Support|186|e", "Yasar|G\fcl|Support|187|m", _
        "\c9tienne|Gu\e9rin|Support|188|e", "|Night watch|Security|191|p", _
        "|Works council||192|e", "Cher||Events|193|m", _
        "Jo|X|Events||m", "Anna-Lena|Schr\f6der-\d6zt\fcrk|Events|195|mhe2pob")
    id = 0
    For Each line In lines
        id = id + 1
        parts = Split(Plain(line), "|")
        AddEmployee id, parts(0), parts(1), parts(2), parts(3), parts(4), Employees
        Place id, Employees, False
        If InStr(parts(4), "x") > 0 Then Place id, PhoneSets, True
    Next
    AddPeople = id
End Function

Function AddPhoneSets(before)
    Dim lines, line, parts, id
    lines = Array("Lobby|Reception|900", "Gate|Security|901", "Meeting room 1||911", "Meeting room 2||912", _
        "Caf\e9t\e9ria||920", "Lift|Security|930", "Fax Sales|Sales|940", "Fax Accounts|Accounts|941")
    id = before
    For Each line In lines
        id = id + 1
        parts = Split(Plain(line), "|")
        AddEmployee id, "", parts(0), parts(1), parts(2), "", PhoneSets
        Place id, PhoneSets, False
    Next
    AddPhoneSets = id - before
End Function

Sub AddMadeUp(firstId, first, last)
    Dim number
    For number = first To last
        AddEmployee firstId + number - first, "Sam", "Example " & number, "Branch " & (number Mod 40), _
            CStr(10000 + number), "me", Employees
        Place firstId + number - first, Employees, False
    Next
End Sub

' What is not there stays Null. Numbers and addresses are of the ranges that nobody has.
Sub AddEmployee(id, first, last, department, extension, extras, category)
    Dim fields
    fields = Array("EmployeeId", id, "FirstName", first, "LastName", last, "Department", department, _
        "EmailAddress", Extra(extras, "e", "person" & id & "@firm.example"), _
        "BusinessPhone", Extra(extension, extension, "+44 20 7946 0" & extension), _
        "BusinessPhone2", Extra(extras, "2", "+44 20 7946 1" & extension), _
        "MobilePhone", Extra(extras, "m", "+44 7700 900" & Right("00" & id, 3)), _
        "HomePhone", Extra(extras, "h", "+44 1632 960" & Right("00" & id, 3)), _
        "PagerPhone", Extra(extras, "p", "8" & extension), _
        "OtherPhone", Extra(extras, "o", "+44 20 7946 2" & extension), _
        "BillingInformation", Extra(extras, "b", "Cost centre " & (id Mod 7)), _
        "Categories", category, "AssistantID", Extra(extras, "b", 1))
    AddRow "Employees", fields
End Sub

Function Extra(extras, key, value)
    Extra = ""
    If Len(key) > 0 And InStr(extras, key) > 0 Then Extra = value
End Function

Sub Place(id, page, bound)
    AddRow "BLFPagesContents", Array("BLFpageId", page, "EmployeeId", id, "BindToEmployee", bound)
End Sub

' Columns and values by turns.
Sub AddRow(table, fields)
    Dim rows, i
    Set rows = database.OpenRecordset(table)
    rows.AddNew
    For i = 0 To UBound(fields) Step 2
        If CStr(fields(i + 1)) <> "" Then rows.Fields(fields(i)).Value = fields(i + 1)
    Next
    rows.Update
    rows.Close
End Sub

Function Plain(text)
    Dim parts, i, result
    parts = Split(text, "\")
    result = parts(0)
    For i = 1 To UBound(parts)
        result = result & Chr(CLng("&H" & Left(parts(i), 2))) & Mid(parts(i), 3)
    Next
    Plain = result
End Function
