' The root of a drive has no entries "." and "..".
'> d
'> d
Sub main()
    MkDir "C:\d"
    RmDir "C:\Temp"
    ChDir "C:\"
    Debug.Print Dir("C:\*", vbDirectory)
    Debug.Print Dir("*", vbDirectory)
End Sub
