' A With block over an element that is left by Exit For or GoTo no longer holds its array.
'> 5 6
Type Thing
    n As Long
End Type

Sub main()
    Dim a() As Thing, i As Long
    ReDim a(2)
    For i = 0 To 2
        With a(i)
            If i = 1 Then Exit For
        End With
    Next
    ReDim Preserve a(5)
    Debug.Print UBound(a) & " ";
    With a(0)
        GoTo Out
    End With
Out:
    ReDim Preserve a(6)
    Debug.Print UBound(a) & ""
End Sub
