' Under Option Compare Text the letters come in their order whatever their case.
'> a B c
Option Compare Text
Sub main()
    list = Array("c", "B", "a")
    For i = 0 To 1
        For j = i + 1 To 2
            If list(j) < list(i) Then swap = list(i): list(i) = list(j): list(j) = swap
        Next
    Next
    Debug.Print Join(list)
End Sub
