' A script as a client: everything by name, in the order in which the telephony client would do it.
' Prints "walk: ok" when all of it was as expected, and ends with status 1 otherwise.
Option Explicit

Dim failures
failures = 0

Sub Expect(what, actual, wanted)
    If CStr(actual) <> CStr(wanted) Then
        WScript.Echo what & ": " & CStr(actual) & " instead of " & CStr(wanted)
        failures = failures + 1
    End If
End Sub

Dim dao, daoBefore, outlook, outlookBefore
Set dao = CreateObject("DAO.DBEngine.36")
daoBefore = dao.StandIn.LiveObjects
Set outlook = CreateObject("Outlook.Application")
outlookBefore = outlook.StandIn.LiveObjects

Dim driver, cursor, found, kind
Set driver = CreateObject("zelbar00.cDataConnector")
Expect "PIMInstalled", driver.PIMInstalled, True
Expect "PIMName", driver.PIMName, 4096
Expect "Version", Left(driver.Version, 3), "11."

Set cursor = driver.OpenContactRecord()
Set found = cursor.FindFirst(0, "+44 20 7000 0001")
Expect "by number", found.FullName, "Byron, Ada"
Expect "in the PIM", found.NotInPIM, False

' Kind and text in variables: scripts pass those by reference.
kind = 1
Dim text
text = "byr*"
Set found = cursor.FindFirst(kind, text)
Expect "by name", found.FullName, "Byrne, Alan"
Expect "first is not the end", cursor.EOF, False
Set found = cursor.FindNext()
Expect "next", found.FullName, "Byron, Ada"
Set found = cursor.FindPrevious()
Expect "previous", found.FullName, "Byrne, Alan"
Set found = Nothing
cursor.MoveLast
Expect "last", cursor.Contact.FullName, "Byron, Ada"
cursor.MoveFirst
Expect "first", cursor.Contact.FullName, "Byrne, Alan"

Set found = cursor.FindFirst(0, "+44 20 7000*")
Expect "prefix", found.NotInPIM, False
Expect "no match", cursor.NoMatch, False

Set found = cursor.FindFirst(0, "0999")
Expect "unknown caller", found.NotInPIM, True
Expect "his number", found.MainPhoneNumber, "0999"
Expect "no match", cursor.NoMatch, True

Dim people, person, count
Set people = cursor.FillContactCollection(0, "+1 555*")
Expect "collection", people.Count, 25
count = 0
For Each person In people
    If person.MainPhoneNumber <> "" Then count = count + 1
Next
Expect "walked", count, 25
Set person = Nothing
Set people = Nothing

Set found = cursor.FindFirst(1, "Byron*")
Dim number, numbers
numbers = ""
For Each number In found.PhoneNumbers
    numbers = numbers & number & ";"
Next
Expect "numbers", numbers, "Business: " & vbTab & "+44 20 7000 0001;Mobile: " & vbTab & "+44 7700 1;"
Expect "by identifier", driver.GetContactByContactID(found.ContactId).FullName, "Byron, Ada"
Expect "equal", found.IsEqual(driver.GetContactByContactID(found.ContactId)), True

Dim action, names
names = 0
For Each action In driver.Actions
    If action.ActionName <> "" Then names = names + 1
Next
Expect "actions", driver.Actions.Count, 5
Expect "actions with a name", names, 5
Expect "one action", driver.Actions.Item(4097).ActionID, 4097
Expect "configured", driver.ExecuteCommand("isFolderConfigured"), True

Set number = Nothing
Set action = Nothing
Set found = Nothing
Set cursor = Nothing
Set driver = Nothing
Expect "live objects of DAO", dao.StandIn.LiveObjects, daoBefore
Expect "live objects of Outlook", outlook.StandIn.LiveObjects, outlookBefore

If failures = 0 Then WScript.Echo "walk: ok"
If failures > 0 Then WScript.Quit 1
WScript.Quit 0
