' CopyFolder copies all that a folder holds, MoveFolder moves it, DeleteFolder deletes it whole.
'> True True
'> False True
'> False
Sub main()
    Dim fso As Object
    Set fso = CreateObject("Scripting.FileSystemObject")
    fso.CreateFolder "C:\d"
    fso.CreateFolder "C:\d\sub"
    fso.CreateTextFile("C:\d\sub\a.txt").Close
    fso.CopyFolder "C:\d", "C:\e"
    Debug.Print fso.FileExists("C:\d\sub\a.txt") & " " & fso.FileExists("C:\e\sub\a.txt")
    fso.MoveFolder "C:\e", "C:\f"
    Debug.Print fso.FolderExists("C:\e") & " " & fso.FileExists("C:\f\sub\a.txt")
    fso.DeleteFolder "C:\f"
    Debug.Print fso.FolderExists("C:\f")
End Sub
