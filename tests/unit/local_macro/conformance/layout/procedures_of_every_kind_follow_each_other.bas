' Behind a procedure come further procedures, with their Public, Private and Static in front, #If and remarks.
'> 1 2 3 5
Sub main()
    Debug.Print F & " " & G & " " & P & " " & H
End Sub
Private Function F() As Long
    F = 1
End Function
Public Static Function G() As Long
    G = 2
End Function
Rem a remark
#If VBA7 Then
Private Property Get P() As Long
    P = 3
End Property
#Else
Dim never As Long
#End If
Static Function H() As Long
    H = 5
End Function
