' A script as a client: everything by name, in the order in which the telephony client would do it, and as one
' whose user has set up the call actions: it copies them, configures the copies, and runs them for a call.
' The argument is a folder: the program that the call starts writes INC.txt there.
' Prints "walk: ok" when all of it was as expected, and ends with status 1 otherwise.
Option Explicit

Const OpenContact = 4097
Const CloseContact = 4098
Const SendMail = 4099
Const StoreInJournal = 4100
Const LaunchExe = 4101
Const Journal = 11
Const SentMail = 5
Const Link = "Contact:  <Outlook://Personal Folders/Contacts/~Ada Byron> "

Dim failures
failures = 0

Sub Expect(what, actual, wanted)
    If CStr(actual) <> CStr(wanted) Then
        WScript.Echo what & ": " & CStr(actual) & " instead of " & CStr(wanted)
        failures = failures + 1
    End If
End Sub

Dim dao, daoBefore, outlook, outlookBefore, session
Set dao = CreateObject("DAO.DBEngine.36")
daoBefore = dao.StandIn.LiveObjects
Set outlook = CreateObject("Outlook.Application")
Set session = outlook.GetNamespace("MAPI")
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
    IncomingCall cursor, Configured(driver.Actions)
    Expect "the driver's own address", Setting(driver.Actions.Item(SendMail), "DestinationAddress").Value, ""
End Sub

' The user's configuration: a copy of each action with settings of its own, kept under the action's number.
Function Configured(actions)
    Dim action, own
    Set Configured = CreateObject("Scripting.Dictionary")
    For Each action In actions
        Set own = action.CopyAction()
        Select Case own.ActionID
            Case SendMail
                Setting(own, "DestinationAddress").Value = "desk@example.com"
            Case LaunchExe
                Setting(own, "Path").Value = "C:\windows\system32"
                Setting(own, "Arguments").Value = _
                    "cmd.exe /c echo $1,$2,$4> """ & WScript.Arguments.Item(0) & "\$3.txt"""
        End Select
        Configured.Add own.ActionID, own
    Next
    Expect "actions", Configured.Count, 5
End Function

Sub IncomingCall(cursor, actions)
    Dim caller, start, entry, mail
    start = DateAdd("n", -7, Now)
    Set caller = cursor.FindFirst(0, "+44 20 7000 0001")
    caller.PersonalData = "TYPE=incoming;START=" & start & ";DURATION=00:07:00;LOCALNUMBER=17;" & _
        "PHONENUMBER=+44 20 7000 0001;ORIGIN=internal;"

    ' A copy of what the user has configured keeps the settings.
    actions(OpenContact).CopyAction().ExecuteAction caller
    Expect "open window", outlook.ActiveInspector.CurrentItem.FullName, "Ada Byron"
    actions(StoreInJournal).CopyAction().ExecuteAction caller
    Set entry = Last(Journal)
    Expect "entry", entry.Subject & "|" & entry.Body & "|" & entry.Duration, _
        "Ada Byron called|Ada Byron called " & vbLf & vbCr & Link & "|7"
    Expect "entry's start is right", Abs(CDbl(entry.Start) - CDbl(start)) < 5 / 86400, True
    actions(SendMail).CopyAction().ExecuteAction caller
    Set mail = Last(SentMail)
    Expect "mail", mail.Subject & " to " & mail.Recipients.Item(1).Name, _
        "Call with Ada Byron to desk@example.com"
    Expect "mail's text", Left(mail.Body, 20) & "..." & Right(mail.Body, Len(Link)), _
        "Ada Byron called on ..." & Link
    actions(LaunchExe).CopyAction().ExecuteAction caller
    actions(CloseContact).CopyAction().ExecuteAction caller
    Expect "windows after the call", outlook.Inspectors.Count, 0
    Expect "caller after the call", caller Is Nothing, True
End Sub

' What a collection gives when it is walked: its values, or a sign for each object.
Function Walked(collection)
    Dim entry
    Walked = ""
    For Each entry In collection
        If IsObject(entry) Then Walked = Walked & "*" Else Walked = Walked & entry & ";"
    Next
End Function

Function Setting(action, key)
    Set Setting = action.ActionProp.Item(key)
End Function

Function Last(folder)
    Dim items
    Set items = session.GetDefaultFolder(folder).Items
    Set Last = items.Item(items.Count)
End Function
