' The empty text has no bytes: the array ends at -1.
'> 0 -1 []
Sub main()
    Dim bytes() As Byte, text As String
    bytes = ""
    text = bytes
    Debug.Print LBound(bytes) & " " & UBound(bytes) & " [" & text & "]"
End Sub
