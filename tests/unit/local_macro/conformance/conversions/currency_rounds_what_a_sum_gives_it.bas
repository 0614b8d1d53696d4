' A Double that is added to an amount becomes one first, and loses what lies behind the fourth decimal.
'> 1 1.0001
Sub main()
    Debug.Print 1@ + 0.00004 & " " & 1@ + 0.00006
End Sub
