' All conversions of the language are known to #If.
'> 12
Sub main()
    Dim n As Long
#If CBool("True") Then
    n = n + 1
#End If
#If CByte(3.5) = 4 Then
    n = n + 1
#End If
#If CCur(1.25) = 1.25 Then
    n = n + 1
#End If
#If CDate(36526) = #1/1/2000# Then
    n = n + 1
#End If
#If CDbl("2.5") = 2.5 Then
    n = n + 1
#End If
#If CInt(2.5) = 2 Then
    n = n + 1
#End If
#If CLng(3.5) = 4 Then
    n = n + 1
#End If
#If CLngLng(7) = 7 Then
    n = n + 1
#End If
#If CLngPtr(7) = 7 Then
    n = n + 1
#End If
#If CSng(1.5) = 1.5 Then
    n = n + 1
#End If
#If CStr(5) = "5" Then
    n = n + 1
#End If
#If CVar(5) = 5 Then
    n = n + 1
#End If
    Debug.Print n & ""
End Sub
