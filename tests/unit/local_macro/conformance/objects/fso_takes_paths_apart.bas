' The path functions work on the text alone.
'> c.txt c txt C:\a\b
'> [] [readme] C:\
'> C:\a\b C:\a\b
Sub main()
    Dim fso As Object
    Set fso = CreateObject("Scripting.FileSystemObject")
    Debug.Print fso.GetFileName("C:\a\b\c.txt") & " " & fso.GetBaseName("C:\a\b\c.txt") & " " & fso.GetExtensionName("C:\a\b\c.txt") & " " & fso.GetParentFolderName("C:\a\b\c.txt")
    Debug.Print "[" & fso.GetExtensionName("readme") & "] [" & fso.GetBaseName("readme") & "] " & fso.GetParentFolderName("C:\a")
    Debug.Print fso.BuildPath("C:\a", "b") & " " & fso.BuildPath("C:\a\", "b")
End Sub
