// Uses the driver until C:\stop is there; status 0 when it worked to the end.
var driver = new ActiveXObject("zelbar00.cDataConnector");
var disk = new ActiveXObject("Scripting.FileSystemObject");
disk.CreateTextFile("C:\\held").Close();
while (!disk.FileExists("C:\\stop"));
WScript.Echo(driver.PIMInstalled);
WScript.Quit(driver.PIMInstalled ? 0 : 1);
