' Empty becomes the zero of each type.
'> 0 0 False [] 12:00:00 AM 0
Sub main()
    Debug.Print CInt(Empty) & " " & CDbl(Empty) & " " & CBool(Empty) & " [" & CStr(Empty) & "] " & CDate(Empty) & " " & _
        CCur(Empty)
End Sub
