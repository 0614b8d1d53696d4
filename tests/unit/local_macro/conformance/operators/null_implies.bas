' Imp is known when the left side is False or the right side True.
'> True True True True True
Sub main()
    Debug.Print (False Imp Null) & " " & (Null Imp True) & " " & IsNull(True Imp Null) & " " & IsNull(Null Imp False) & _
        " " & IsNull(Null Imp Null)
End Sub
