' Folders are listed with vbDirectory, together with the files.
'> []
'> sub
Sub main()
    MkDir "C:\d"
    MkDir "C:\d\sub"
    Debug.Print "[" & Dir("C:\d\s*") & "]"
    Debug.Print Dir("C:\d\s*", vbDirectory)
End Sub
