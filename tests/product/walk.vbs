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
Walk
Expect "live objects of DAO", dao.StandIn.LiveObjects, daoBefore
Expect "live objects of Outlook", outlook.StandIn.LiveObjects, outlookBefore
If failures > 0 Then WScript.Quit 1
WScript.Echo "walk: ok"

Sub Walk()
    Dim driver, cursor, found, kind, text
    Set driver = CreateObject("zelbar00.cDataConnector")
    Expect "installed", driver.PIMInstalled, True
    Expect "configured", driver.ExecuteCommand("isFolderConfigured"), True

    Set cursor = driver.OpenContactRecord()
    Expect "by number", cursor.FindFirst(0, "+44 20 7000 0001").FullName, "Byron, Ada"
    Set found = cursor.FindFirst(0, "0999")
    Expect "unknown caller", found.NotInPIM & " " & found.MainPhoneNumber, "True 0999"

    ' Kind and text in variables: scripts pass those by reference.
    kind = 1
    text = "byr*"
    Expect "by name", cursor.FindFirst(kind, text).FullName, "Byrne, Alan"
    Expect "first is not the end", cursor.EOF, False
    Set found = cursor.FindNext()
    Expect "next", found.FullName, "Byron, Ada"
    Expect "previous", cursor.FindPrevious().FullName, "Byrne, Alan"
    cursor.MoveLast
    Expect "last", cursor.Contact.FullName, "Byron, Ada"
    Expect "numbers", Walked(found.PhoneNumbers), _
        "Business: " & vbTab & "+44 20 7000 0001;Mobile: " & vbTab & "+44 7700 1;"
    Expect "equal", found.IsEqual(driver.GetContactByContactID(found.ContactId)), True

    Expect "collection", Walked(cursor.FillContactCollection(0, "+1 555*")), String(25, "*")
    Expect "actions", Walked(driver.Actions), "*****"
    Expect "one action", driver.Actions.Item(4097).ActionID, 4097
End Sub

' What a collection gives when it is walked: its values, or a sign for each object.
Function Walked(collection)
    Dim entry
    Walked = ""
    For Each entry In collection
        If IsObject(entry) Then Walked = Walked & "*" Else Walked = Walked & entry & ";"
    Next
End Function
