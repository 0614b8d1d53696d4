' VBA6, VBA7, Win32 and Win64 are True, Mac and Win16 False; an unknown name is Empty.
'> VBA6 VBA7 Win32 Win64
Sub main()
    Dim s As String
#If VBA6 Then
    s = s & " VBA6"
#End If
#If VBA7 Then
    s = s & " VBA7"
#End If
#If Win32 Then
    s = s & " Win32"
#End If
#If Win64 Then
    s = s & " Win64"
#End If
#If Mac Or Win16 Or NeverHeardOf Then
    s = s & " wrong"
#End If
    Debug.Print Trim(s)
End Sub
