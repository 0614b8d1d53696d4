' A Variant of every simple kind is read back as what it was.
'> Empty Null Integer Long Single Double Currency Date String Boolean Byte LongLong Error
Sub main()
    Dim v As Variant, item As Variant, s As String
    Open "C:\b" For Binary As #1
    For Each item In Array(Empty, Null, 1, 2&, 1.5!, 2.5, 3@, #1/2/2020#, "text", True, CByte(7), CLngLng(8), CVErr(9))
        v = item
        Put #1, , v
    Next
    Seek #1, 1
    Do
        Get #1, , v
        If EOF(1) Then Exit Do
        s = s & " " & TypeName(v)
    Loop
    Debug.Print Trim(s)
End Sub
