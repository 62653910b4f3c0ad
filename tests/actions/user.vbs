' A script as a user's client: takes the actions as they are offered, sets them up, keeps copies, and runs the
' copies for an incoming and an outgoing call. Outlook is then asked itself what has happened.
' Argument: a folder for the started program's note. Prints "actions: ok", or what was not as expected.
Option Explicit

Dim failures
failures = 0

Sub Expect(what, actual, wanted)
    If CStr(actual) <> CStr(wanted) Then
        WScript.Echo what & ": " & CStr(actual) & " instead of " & CStr(wanted)
        failures = failures + 1
    End If
End Sub

Dim outlook, session, anna, before
Set outlook = CreateObject("Outlook.Application")
Set session = outlook.GetNamespace("MAPI")
Set anna = session.GetDefaultFolder(10).Items.Add(2)
anna.FullName = "Anna Berg"
anna.BusinessTelephoneNumber = "555 100"
anna.Save
before = outlook.StandIn.LiveObjects

Dim driver, offered, opener, closer, mail, journal, launcher
Set driver = CreateObject("zelbar00.cDataConnector")
Set offered = driver.Actions
offered.Item(4097).ActionProp.Item("NewOnInexistant").ValueIndex = 2
offered.Item(4099).ActionProp.Item("DestinationAddress").Value = "desk@example.com"
offered.Item(4101).ActionProp.Item("Path").Value = "C:\windows\system32"
offered.Item(4101).ActionProp.Item("Arguments").Value = _
    "cmd.exe /c echo $3 $1>>""" & WScript.Arguments(0) & "\calls.txt"""
Set opener = offered.Item(4097).CopyAction()
Set closer = offered.Item(4098).CopyAction()
Set mail = offered.Item(4099).CopyAction()
Set journal = offered.Item(4100).CopyAction()
Set launcher = offered.Item(4101).CopyAction()
offered.Item(4099).ActionProp.Item("DestinationAddress").Value = "somebody else"

Sub RunForCall(direction)
    Dim contact, result
    Set contact = driver.GetContactByContactID(anna.EntryID)
    contact.PersonalData = "TYPE=" & direction & ";START=2003-02-01 10:00:00;DURATION=60;PHONENUMBER=555100;"
    result = opener.ExecuteAction(contact)
    Expect "result", result, False
    Expect "open windows", outlook.Inspectors.Count, 1
    result = mail.ExecuteAction(contact)
    result = journal.ExecuteAction(contact)
    result = launcher.ExecuteAction(contact)
    result = closer.ExecuteAction(contact)
    Expect "the contact of a call that is over", contact Is Nothing, True
    Expect "windows left", outlook.Inspectors.Count, 0
End Sub

RunForCall "incoming"
RunForCall "outgoing"

Dim caller, made
Set caller = Nothing
made = journal.ExecuteAction(caller)
Expect "a contact for nobody", caller.NotInPIM, True
caller.FullName = "Carl Dorn"
caller.MainPhoneNumber = "0123"
made = opener.ExecuteAction(caller)
Expect "unknown caller", outlook.Inspectors.Item(1).CurrentItem.FullName, "Carl Dorn"
outlook.Inspectors.Item(1).Close 1

Dim entries, sent
Set entries = session.GetDefaultFolder(11).Items
Set sent = session.GetDefaultFolder(5).Items
Expect "journal entries", entries.Count, 3
Expect "incoming", entries.Item(1).Subject, "Anna Berg called"
Expect "outgoing", entries.Item(2).Subject, "Call to Anna Berg"
Expect "start", Year(entries.Item(1).Start), 2003
Expect "mails", sent.Count, 2
Expect "address", sent.Item(1).Recipients.Item(1).Name, "desk@example.com"
Expect "body", Left(sent.Item(2).Body, 21), "Call to Anna Berg on "
Expect "contacts", session.GetDefaultFolder(10).Items.Count, 2

Set entries = Nothing
Set sent = Nothing
Set caller = Nothing
Set opener = Nothing
Set closer = Nothing
Set mail = Nothing
Set journal = Nothing
Set launcher = Nothing
Set offered = Nothing
Set driver = Nothing
Expect "live objects of Outlook", outlook.StandIn.LiveObjects, before

If failures = 0 Then WScript.Echo "actions: ok"
If failures > 0 Then WScript.Quit 1
WScript.Quit 0
