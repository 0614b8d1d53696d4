' A Folder gives its files and folders as collections.
'> a.txt b.txt
'> 2 sub
Sub main()
    Dim fso As Object, f As Object, s As String
    Set fso = CreateObject("Scripting.FileSystemObject")
    fso.CreateFolder "C:\d"
    fso.CreateFolder "C:\d\sub"
    fso.CreateTextFile("C:\d\a.txt").Close
    fso.CreateTextFile("C:\d\b.txt").Close
    For Each f In fso.GetFolder("C:\d").Files
        s = s & " " & f.Name
    Next
    Debug.Print Trim(s)
    For Each f In fso.GetFolder("C:\d").SubFolders
        Debug.Print fso.GetFolder("C:\d").Files.Count & " " & f.Name
    Next
End Sub
