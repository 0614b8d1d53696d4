' A file that is there isn't overwritten when that is forbidden.
'! 58 File already exists
Sub main()
    Dim fso As Object
    Set fso = CreateObject("Scripting.FileSystemObject")
    fso.CreateTextFile("C:\a.txt").Close
    fso.CreateTextFile "C:\a.txt", False
End Sub
