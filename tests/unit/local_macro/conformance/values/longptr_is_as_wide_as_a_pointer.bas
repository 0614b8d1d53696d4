' On 64 bits a LongPtr is a LongLong.
'> LongLong
Sub main()
    Dim p As LongPtr
    Debug.Print TypeName(p)
End Sub
