' &H10000 to &HFFFFFFFF are the 32 bits of a Long.
'> Long 65536
'> Long 2147483647
'> Long -2147483648
'> Long -1
Sub main()
    Debug.Print TypeName(&H10000) & " " & &H10000
    Debug.Print TypeName(&H7FFFFFFF) & " " & &H7FFFFFFF
    Debug.Print TypeName(&H80000000) & " " & &H80000000
    Debug.Print TypeName(&HFFFFFFFF) & " " & &HFFFFFFFF
End Sub
