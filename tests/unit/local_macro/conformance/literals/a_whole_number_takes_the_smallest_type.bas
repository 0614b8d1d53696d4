' A whole number is an Integer, or a Long, or a Double: the first that can hold it.
'> Integer Long Long Double
Sub main()
    Debug.Print TypeName(32767) & " " & TypeName(32768) & " " & TypeName(2147483647) & " " & TypeName(2147483648#)
End Sub
