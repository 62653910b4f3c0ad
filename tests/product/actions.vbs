' A script as a client whose user has set up the call actions: copies them, configures the copies, and runs
' them for a call. What came of it is read in Outlook, beside the driver.
' The argument is a folder: the program that a call starts writes INC.txt there.
' Prints "actions: ok" when all of it was as expected, and ends with status 1 otherwise.
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

Dim outlook, session, before, folder
folder = WScript.Arguments.Item(0)
Set outlook = CreateObject("Outlook.Application")
Set session = outlook.GetNamespace("MAPI")
before = outlook.StandIn.LiveObjects

Dim driver, cursor, chosen
Set driver = CreateObject("zelbar00.cDataConnector")
Set cursor = driver.OpenContactRecord()
Set chosen = CreateObject("Scripting.Dictionary")
ConfigureAll
IncomingCall
Expect "the driver's own address", Setting(driver.Actions.Item(SendMail), "DestinationAddress").Value, ""

chosen.RemoveAll
Set chosen = Nothing
Set cursor = Nothing
Set driver = Nothing
Expect "live objects of Outlook", outlook.StandIn.LiveObjects, before
If failures > 0 Then WScript.Quit 1
WScript.Echo "actions: ok"

' The user's configuration: a copy of each action with settings of its own, kept under the action's number.
Sub ConfigureAll()
    Dim action, own
    For Each action In driver.Actions
        Set own = action.CopyAction()
        Select Case own.ActionID
            Case SendMail
                Setting(own, "DestinationAddress").Value = "desk@example.com"
            Case LaunchExe
                Setting(own, "Path").Value = "C:\windows\system32"
                Setting(own, "Arguments").Value = "cmd.exe /c echo $1,$2,$4> """ & folder & "\$3.txt"""
        End Select
        chosen.Add CStr(own.ActionID), own
    Next
    Expect "actions", chosen.Count, 5
End Sub

' A copy of what the user has configured keeps the settings.
Function Copied(id)
    Set Copied = chosen(CStr(id)).CopyAction()
End Function

Sub IncomingCall()
    Dim caller, start, text
    start = DateAdd("n", -7, Now)
    Set caller = cursor.FindFirst(0, "+44 20 7000 0001")
    caller.PersonalData = "TYPE=incoming;START=" & start & ";DURATION=00:07:00;LOCALNUMBER=17;" & _
        "PHONENUMBER=+44 20 7000 0001;ORIGIN=internal;"

    Copied(OpenContact).ExecuteAction caller
    Expect "open window", outlook.ActiveInspector.CurrentItem.FullName, "Ada Byron"
    Copied(StoreInJournal).ExecuteAction caller
    ExpectEntry "Ada Byron called", "Ada Byron called " & vbLf & vbCr & Link, start, 7
    Copied(SendMail).ExecuteAction caller
    ExpectMail "Call with Ada Byron", "Ada Byron called on ", vbLf & vbCr & Link
    Copied(LaunchExe).ExecuteAction caller
    Copied(CloseContact).ExecuteAction caller
    Expect "windows after the call", outlook.Inspectors.Count, 0
    Expect "caller after the call", caller Is Nothing, True
End Sub

Sub ExpectEntry(subject, body, start, minutes)
    Dim entry
    Set entry = Last(Journal)
    Expect "entry", entry.Subject & "|" & entry.Body & "|" & entry.Duration, subject & "|" & body & "|" & minutes
    Expect "entry's start is right", Abs(CDbl(entry.Start) - CDbl(start)) < 5 / 86400, True
End Sub

Sub ExpectMail(subject, textStart, textEnd)
    Dim mail
    Set mail = Last(SentMail)
    Expect "mail", mail.Subject & " to " & mail.Recipients.Item(1).Name, subject & " to desk@example.com"
    Expect "mail's text", Left(mail.Body, Len(textStart)) & "..." & Right(mail.Body, Len(textEnd)), _
        textStart & "..." & textEnd
End Sub

Function Setting(action, key)
    Set Setting = action.ActionProp.Item(key)
End Function

Function Last(folder)
    Dim items
    Set items = session.GetDefaultFolder(folder).Items
    Set Last = items.Item(items.Count)
End Function
