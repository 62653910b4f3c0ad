' Late bound: who has this number?      cscript //nologo find.vbs NUMBER
' On 64-bit Windows with the 32-bit script host, %SystemRoot%\SysWOW64\cscript.exe. Status 0: found, 1: not.
Option Explicit

Const ByNumber = 0
Dim driver, cursor, contact, number

Set driver = CreateObject("zelbar00.cDataConnector")
Set cursor = driver.OpenContactRecord()
Set contact = cursor.FindFirst(ByNumber, WScript.Arguments(0))
If contact.NotInPIM Then
    WScript.Echo "unknown"
    WScript.Quit 1
End If
WScript.Echo contact.FullName
For Each number In contact.PhoneNumbers ' each is a label, a tab and the number
    WScript.Echo number
Next
WScript.Quit 0
